#pragma once

#include "motionguard.h"

namespace vanto
{

namespace FingerNames
{
/// The translated name of a finger.
inline QString shown(std::size_t finger)
{
    return MotionGuard::fingerName(finger);
}
} // namespace FingerNames

} // namespace vanto
