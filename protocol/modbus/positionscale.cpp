#include "positionscale.h"

#include <cmath>

namespace vanto
{

namespace
{
constexpr std::uint16_t FullRange = 65535;
constexpr std::uint8_t FullSpeed = 255;
} // namespace

std::uint16_t PositionLimits::toAbsolute(std::uint16_t logical) const
{
    if (lower == 0 || upper == FullRange)
        return logical;
    const double span = static_cast<double>(upper) - lower;
    return static_cast<std::uint16_t>(std::lround(lower + span * logical / FullRange));
}

std::uint16_t PositionLimits::toLogical(std::uint16_t absolute) const
{
    if (lower == 0 || upper == FullRange || lower == upper)
        return absolute;
    // The product wraps around at 32 bits, signed.
    const std::uint32_t distance = std::uint32_t{absolute} - lower;
    const auto product = static_cast<std::int32_t>(distance * FullRange);
    const double logical = static_cast<double>(product) / (upper - lower);
    return static_cast<std::uint16_t>(static_cast<std::int64_t>(logical));
}

std::uint16_t speedToRegister(std::uint8_t speed)
{
    return static_cast<std::uint16_t>(speed * FullRange / FullSpeed);
}

} // namespace vanto
