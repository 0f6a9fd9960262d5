#pragma once

#include <QComboBox>

namespace vanto
{

/// A box whose choice opens a device or changes a unit: a turn of the wheel over it is left to the
/// page, and a text that is too long ends in an ellipsis and is whole in the tool tip.
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
