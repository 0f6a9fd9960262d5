#pragma once

#include <cstdint>

namespace vanto
{

/// Result codes that mean the same for every adapter. All other non-zero codes are failures whose
/// numbering belongs to the adapter that returned them.
namespace ResultCode
{
inline constexpr std::uint8_t Success = 0;
inline constexpr std::uint8_t Timeout = 3;
} // namespace ResultCode

} // namespace vanto
