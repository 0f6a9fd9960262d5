#pragma once

#include "tool.h"

namespace vanto
{

/// Saves the parameters of the hand before they may be lost. It only reads, and a failure, which is
/// said on standard error, ends nothing.
namespace AutomaticBackup
{
/// Saves those of the open hand and adds the path to the answer.
void save(Tool& tool, Answer& answer);
/// Opens the hand for it and closes it again.
void saveClosed(Tool& tool, Answer& answer);
} // namespace AutomaticBackup

} // namespace vanto
