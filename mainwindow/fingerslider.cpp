#include "fingerslider.h"

#include <QKeyEvent>
#include <QWheelEvent>

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
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit sliderReleased();
    else
        QSlider::keyPressEvent(event);
}
