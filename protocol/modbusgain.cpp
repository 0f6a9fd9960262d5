#include "modbusgain.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vanto
{

namespace
{
constexpr double GainScale = 100.0;
/// Compensates for the inexact float: without it 0.29 would be stored as 0.28.
constexpr double FloatRounding = 1 + 0x1p-23;
} // namespace

std::uint16_t gainToRegister(float gain)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(gain))
        return 0;
    const double scaled =
        std::clamp<double>(gain * GainScale * FloatRounding, Limits::min(), Limits::max());
    return static_cast<std::uint16_t>(static_cast<std::int32_t>(scaled));
}

float gainFromRegister(std::uint16_t value)
{
    return static_cast<float>(static_cast<float>(value) / GainScale);
}

} // namespace vanto
