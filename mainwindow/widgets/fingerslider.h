#pragma once

#include <QSlider>

namespace vanto
{

/// A slider for a finger. It ignores the wheel, which could move a finger by accident. Keys
/// preview a value, as dragging does; Return commits it, as releasing the slider does. Disabling
/// the slider during a drag ends the drag without emitting sliderReleased().
class FingerSlider : public QSlider
{
    Q_OBJECT
public:
    explicit FingerSlider(QWidget* parent = nullptr);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
};

} // namespace vanto
