#pragma once

#include "handscan.h"

#include <optional>

class QWidget;

namespace vanto
{

/// The dialogs that choose nodes. Each returns nothing if the user cancels it.
namespace NodeDialogs
{
/// Asks for one node and its protocol.
std::optional<HandScan::Range> openNode(QWidget* parent, const HandScan::Range& suggested);
/// Asks for the first and the last node of a scan.
std::optional<HandScan::Range> scanRange(QWidget* parent, const HandScan::Range& current);
} // namespace NodeDialogs

} // namespace vanto
