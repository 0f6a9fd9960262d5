#pragma once

#include <cstdint>

namespace vanto
{

/// Arguments of operations that offer no choice to the user.
constexpr std::uint16_t BeepMs = 500;
constexpr std::uint8_t ResetMode = 0;

/// Highest values that a user may choose.
constexpr unsigned MaxSelfTestLevel = 2;
constexpr unsigned MaxBeepSwitch = 1;

} // namespace vanto
