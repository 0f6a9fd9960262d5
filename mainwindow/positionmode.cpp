#include "positionmode.h"

#include "jointangles.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QSlider>

#include <algorithm>

namespace
{
constexpr int PositionItem = 0;
constexpr int MaxPosition = 65535;
} // namespace

bool PositionMode::isChosen(const QComboBox* mode)
{
    return mode->currentIndex() == PositionItem;
}

void PositionMode::apply(bool positions, QLabel* unit, const PerFinger<QSlider*>& sliders)
{
    const QString ticks = QStringLiteral("ticks");
    const QString degree = QCoreApplication::translate("PositionMode", "degree");
    unit->setText(positions ? ticks : degree);
    // Room for either, so that nothing moves when the mode changes.
    const QFontMetrics metrics = unit->fontMetrics();
    unit->setMinimumWidth(
        std::max(metrics.horizontalAdvance(ticks), metrics.horizontalAdvance(degree)));
    for (std::size_t f = 0; f < FingerCount; ++f)
        sliders[f]->setRange(positions ? 0 : Min_Joint_Angle[f][0],
                             positions ? MaxPosition : Max_Joint_Angle[f][0]);
}
