#pragma once

#include <QSlider>

namespace vanto
{

/// A slider for a finger. A turn of the wheel over it would move a finger that nobody meant, so
/// it is left to the page. The keys preview as a drag does; Return commits as a release does. A
/// slider that is disabled while it is held is let go, but not released.
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
