#include "motionguard.h"

#include <QCoreApplication>

#include <cstdlib>

namespace vanto
{

namespace
{
/// The context of the texts, which the player shows.
struct PlayerText {
    Q_DECLARE_TR_FUNCTIONS(vanto::SequencePlayer)
};

constexpr PerFinger<const char*> FingerNames{
    QT_TRANSLATE_NOOP("vanto::SequencePlayer", "Thumb"),
    QT_TRANSLATE_NOOP("vanto::SequencePlayer", "Index"),
    QT_TRANSLATE_NOOP("vanto::SequencePlayer", "Middle"),
    QT_TRANSLATE_NOOP("vanto::SequencePlayer", "Third"),
    QT_TRANSLATE_NOOP("vanto::SequencePlayer", "Little"),
    QT_TRANSLATE_NOOP("vanto::SequencePlayer", "Thumb root")};
} // namespace

QString MotionGuard::fingerName(std::size_t finger)
{
    return PlayerText::tr(FingerNames.at(finger));
}

QString MotionGuard::overCurrentText(std::uint8_t finger, std::uint16_t milliamperes)
{
    return PlayerText::tr("%s has too big current: %d mA")
        .replace(QLatin1String("%s"), fingerName(finger))
        .replace(QLatin1String("%d"), QString::number(milliamperes));
}

bool MotionGuard::hasArrived(const MotionUnit& unit, int target, int current)
{
    return std::abs(target - current) <= unit.arrivalTolerance();
}

} // namespace vanto
