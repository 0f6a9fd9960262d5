#pragma once

#include <cstdint>

namespace vanto
{

/// Arguments of operations that offer no choice to the user.
constexpr std::uint16_t BeepMs = 500;
constexpr std::uint8_t ResetMode = 0;

} // namespace vanto
