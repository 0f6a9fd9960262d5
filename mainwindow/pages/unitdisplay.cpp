#include "unitdisplay.h"

#include "jointangles.h"
#include "numbertext.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QSlider>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int PositionItem = 0;
constexpr int MaxPosition = 65535;
} // namespace

const MotionUnit& UnitDisplay::selectedUnit(const QComboBox* mode)
{
    return mode->currentIndex() == PositionItem ? MotionUnit::position() : MotionUnit::angle();
}

void UnitDisplay::apply(const MotionUnit& unit, QLabel* name, const PerFinger<QSlider*>& sliders)
{
    const bool positions = unit.isPosition();
    const QString ticks = QStringLiteral("ticks");
    const QString degree = QCoreApplication::translate("UnitDisplay", "degree");
    name->setText(positions ? ticks : degree);
    // Wide enough for both, so that the layout does not change with the mode.
    const QFontMetrics metrics = name->fontMetrics();
    name->setMinimumWidth(
        std::max(metrics.horizontalAdvance(ticks), metrics.horizontalAdvance(degree)));
    for (std::size_t f = 0; f < FingerCount; ++f)
        sliders[f]->setRange(positions ? 0 : Min_Joint_Angle[f][0],
                             positions ? MaxPosition : Max_Joint_Angle[f][0]);
}

QString UnitDisplay::text(const MotionUnit& unit, int value)
{
    return unit.isPosition() ? QString::number(static_cast<std::uint16_t>(value))
                             : NumberText::fromAngle(static_cast<std::int16_t>(value));
}

int UnitDisplay::value(const MotionUnit& unit, const QString& text)
{
    return unit.isPosition() ? int{NumberText::toWord(text)} : int{NumberText::toAngle(text)};
}

} // namespace vanto
