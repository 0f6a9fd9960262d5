#pragma once

#include "sequencedata.h"

#include <optional>

namespace vanto
{

/// Steps on the clipboard, as a sequence in its file form, so that other windows and editors can
/// use them.
namespace StepClipboard
{
void set(const SequenceData& steps);
/// Nothing if the clipboard contains no steps.
std::optional<SequenceData> steps();
} // namespace StepClipboard

} // namespace vanto
