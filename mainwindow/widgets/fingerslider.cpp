#include "fingerslider.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace vanto
{

FingerSlider::FingerSlider(QWidget* parent) : QSlider(parent)
{
    connect(this, &QSlider::actionTriggered, this, [this](int action) {
        if (action != SliderMove)
            emit sliderMoved(sliderPosition());
    });
}

void FingerSlider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void FingerSlider::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat())
            emit sliderReleased();
    } else
        QSlider::keyPressEvent(event);
}

void FingerSlider::changeEvent(QEvent* event)
{
    const QSignalBlocker blocker(event->type() == QEvent::EnabledChange ? this : nullptr);
    QSlider::changeEvent(event);
}

} // namespace vanto
