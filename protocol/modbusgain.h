#pragma once

#include <cstdint>

namespace vanto
{

// How a Modbus hand stores a gain: hundredths in a register.

constexpr float MaxModbusGain = 655.35F; ///< the largest one that a register can hold

/// Hundredths, truncated; only the low 16 bits are kept.
std::uint16_t gainToRegister(float gain);
float gainFromRegister(std::uint16_t value);

} // namespace vanto
