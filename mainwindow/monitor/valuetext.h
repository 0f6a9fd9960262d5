#pragma once

#include "samplebuffer.h"

namespace vanto
{

/// Measured values as they are shown.
namespace ValueText
{
QString quantity(Quantity quantity);
/// A missing value is a dash. Angles are in degrees, all others in the units of the hand.
QString value(Quantity quantity, std::int32_t value);
QString mean(Quantity quantity, double value);
/// A single value, or the smallest and the largest one.
QString extent(Quantity quantity, const Extent& extent);
} // namespace ValueText

} // namespace vanto
