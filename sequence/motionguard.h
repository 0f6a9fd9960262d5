#pragma once

#include "fingers.h"
#include "motionunit.h"

#include <QString>

namespace vanto
{

/// What is checked while fingers move.
namespace MotionGuard
{
constexpr int CurrentLimitMa = 79; ///< a finger that draws more is stopped

constexpr bool isOverCurrent(std::uint16_t milliamperes)
{
    return milliamperes > CurrentLimitMa;
}

/// The translated name of a finger.
QString fingerName(std::size_t finger);

/// "Thumb has too big current: 80 mA"
QString overCurrentText(std::uint8_t finger, std::uint16_t milliamperes);

/// Whether a finger is near enough to its target.
bool hasArrived(const MotionUnit& unit, int target, int current);
} // namespace MotionGuard

} // namespace vanto
