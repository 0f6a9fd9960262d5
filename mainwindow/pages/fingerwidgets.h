#pragma once

#include "fingers.h"

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

} // namespace vanto
