#pragma once

#include <cstdint>

namespace vanto
{

/// Conversions between what the operations take and what the registers hold.

/// Raw positions at which a finger's logical positions 0 and 65535 lie. A lower limit of 0 means
/// that there is nothing to convert by.
struct PositionLimits {
    std::uint16_t lower = 0;
    std::uint16_t upper = 0;

    std::uint16_t toAbsolute(std::uint16_t logical) const;
    /// Truncates. A position outside the limits is not clamped, it wraps around in 16 bits.
    std::uint16_t toLogical(std::uint16_t absolute) const;
};

/// Speeds 0..255 span the whole register.
std::uint16_t speedToRegister(std::uint8_t speed);

/// Gains in hundredths, truncated, of which the register takes the low 16 bits.
std::uint16_t gainToRegister(float gain);
float gainFromRegister(std::uint16_t value);

} // namespace vanto
