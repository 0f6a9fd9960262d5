#pragma once

#include <cstdint>

namespace vanto
{

// Conversions between values of operations and values of registers.

/// Raw positions of a finger's logical positions 0 and 65535. With a lower limit of 0 nothing is
/// converted.
struct PositionLimits {
    std::uint16_t lower = 0;
    std::uint16_t upper = 0;

    std::uint16_t toAbsolute(std::uint16_t logical) const;
    /// Truncates. A position outside the limits is not clamped but wraps around at 16 bits.
    std::uint16_t toLogical(std::uint16_t absolute) const;
};

/// Maps 0..255 to the full range of the register.
std::uint16_t speedToRegister(std::uint8_t speed);

} // namespace vanto
