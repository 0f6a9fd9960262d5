#include "stepheader.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

namespace vanto
{

StepHeader::StepHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent)
{
    setSectionsClickable(true);
    setHighlightSections(true);
    // Individual row heights would query every cell of a long sequence.
    setSectionResizeMode(QHeaderView::Fixed);
}

bool StepHeader::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !m_toolTips)
        return QHeaderView::viewportEvent(event);
    const auto* help = static_cast<const QHelpEvent*>(event);
    const int row = logicalIndexAt(help->pos());
    QToolTip::showText(help->globalPos(), row < 0 ? QString() : m_toolTips(row), this);
    return true;
}

void StepHeader::mousePressEvent(QMouseEvent* event)
{
    const int row = logicalIndexAt(event->position().toPoint());
    if (row >= 0 && event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier))
        emit sig_extended(row, event->modifiers());
    else
        QHeaderView::mousePressEvent(event);
}

/// Selecting a row moves the hand, so the mouse selects none while it moves with a button pressed.
void StepHeader::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton)
        QHeaderView::mouseMoveEvent(event);
}

} // namespace vanto
