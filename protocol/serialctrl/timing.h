#pragma once

#include <cstdint>

namespace vanto
{

/// Milliseconds since the first call, modulo 2^32.
std::uint32_t GetMilliSecondsImpl();

/// Processes events until the time of day has advanced by `milliseconds`; a delay across midnight
/// ends early.
void DelayMilliSecondsImpl(std::uint32_t milliseconds);

} // namespace vanto
