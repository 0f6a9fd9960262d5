#pragma once

#include <QSpinBox>

namespace vanto
{

/// How often something is played; 0 is endless. Only the step beyond the maximum and a typed 0
/// reach 0, not the step down from 1, and the wheel is ignored: endless motion is not to begin by
/// accident.
class RepeatBox : public QSpinBox
{
    Q_OBJECT
public:
    explicit RepeatBox(QWidget* parent = nullptr);

    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace vanto
