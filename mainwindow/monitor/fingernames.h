#pragma once

#include "motionguard.h"

#include <QColor>
#include <QPixmap>

namespace vanto
{

namespace FingerNames
{
/// The translated name of a finger.
inline QString shown(std::size_t finger)
{
    return MotionGuard::fingerName(finger);
}

/// A square in the color of a finger.
inline QPixmap colorMark(const QColor& color)
{
    constexpr int size = 10; // pixels
    QPixmap mark(size, size);
    mark.fill(color);
    return mark;
}
} // namespace FingerNames

} // namespace vanto
