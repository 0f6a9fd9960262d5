#pragma once

#include <QComboBox>

namespace vanto
{

/// A combo box that ignores the wheel, because its selection opens a device or changes a unit. Text
/// that does not fit is elided; the tool tip shows it in full.
class NoWheelComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit NoWheelComboBox(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace vanto
