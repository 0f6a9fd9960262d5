#include "repeatbox.h"

#include <QWheelEvent>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int Endless = 0;
} // namespace

RepeatBox::RepeatBox(QWidget* parent) : QSpinBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void RepeatBox::stepBy(int steps)
{
    const int from = value() == Endless ? maximum() + 1 : value();
    const int to = std::clamp(from + steps, 1, maximum() + 1);
    setValue(to > maximum() ? Endless : to);
    selectAll();
}

QAbstractSpinBox::StepEnabled RepeatBox::stepEnabled() const
{
    if (value() == Endless)
        return StepDownEnabled;
    return value() == 1 ? StepUpEnabled : StepUpEnabled | StepDownEnabled;
}

void RepeatBox::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace vanto
