#pragma once

#include "fingers.h"

#include <cstdint>

namespace vanto
{

// Ranges of the joints in hundredths of a degree. The first joint of a row is the one that the
// sliders in angle mode move.

inline constexpr std::size_t JointCount = 4;
using JointAngles = PerFinger<std::array<std::int32_t, JointCount>>;

inline constexpr JointAngles Min_Joint_Angle{{
    {-1269, 14396, 15920, -3206},
    {9100, 6411, 14610, 1820},
    {8958, 6800, 14610, 2506},
    {8947, 6174, 14610, 1481},
    {8805, 6339, 14610, 2481},
    {-200, -200, -200, -200},
}};

inline constexpr JointAngles Max_Joint_Angle{{
    {3676, 16774, 19113, 3634},
    {18091, 16938, 14610, 17472},
    {17852, 17181, 14610, 17401},
    {17904, 16697, 14610, 17144},
    {17733, 16938, 14610, 17173},
    {9200, 9200, 9200, 9200},
}};

} // namespace vanto
