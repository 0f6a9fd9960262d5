#pragma once

#include "fingers.h"

#include <QSignalBlocker>
#include <QSlider>
#include <QString>
#include <QWidget>

namespace vanto
{

/// The widgets of a row, one per finger: those named `prefix`0 to `prefix`5.
template<class Widget>
PerFinger<Widget*> fingerWidgets(const QWidget* page, const char* prefix)
{
    PerFinger<Widget*> widgets{};
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        widgets[finger] = page->findChild<Widget*>(QLatin1String(prefix) + QString::number(finger));
        Q_ASSERT_X(widgets[finger], "fingerWidgets", prefix);
    }
    return widgets;
}

/// Ends the drags in progress. The releases emit nothing then.
inline void cancelDrags(const PerFinger<QSlider*>& sliders)
{
    for (QSlider* slider : sliders) {
        const QSignalBlocker blocker(slider);
        slider->setSliderDown(false);
    }
}

} // namespace vanto
