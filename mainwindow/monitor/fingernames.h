#pragma once

#include "fingers.h"

#include <QColor>
#include <QCoreApplication>
#include <QPixmap>

namespace vanto
{

namespace FingerNames
{
/// The translated name of a finger; the catalogues have it from the player's messages.
inline QString shown(std::size_t finger)
{
    constexpr PerFinger<const char*> names{"Thumb", "Index",  "Middle",
                                           "Third", "Little", "Thumb root"};
    return QCoreApplication::translate("vanto::SequencePlayer", names.at(finger));
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
