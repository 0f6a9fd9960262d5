#pragma once

#include <QComboBox>

namespace vanto
{

/// A combo box that opens a device or changes a unit, and so ignores the wheel. Text that does not
/// fit is elided; the tool tip shows it in full.
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
