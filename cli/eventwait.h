#pragma once

#include <functional>

namespace vanto
{

/// Processes events until `isDone` returns true, at most for `milliseconds`; without a limit if
/// negative. Returns whether it did.
bool waitUntil(const std::function<bool()>& isDone, int milliseconds = -1);

} // namespace vanto
