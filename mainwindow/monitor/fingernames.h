#pragma once

#include "fingers.h"

#include <QCoreApplication>

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
} // namespace FingerNames

} // namespace vanto
