#pragma once

#include <cstdint>

namespace vanto
{

/// Result codes common to all adapters. All other non-zero codes are failures, numbered by the
/// adapter that returns them.
namespace ResultCode
{
inline constexpr std::uint8_t Success = 0;
inline constexpr std::uint8_t Timeout = 3;
} // namespace ResultCode

} // namespace vanto
