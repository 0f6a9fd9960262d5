#include "equalwidthgroup.h"

#include <QEvent>
#include <QWidget>

#include <algorithm>

namespace vanto
{

EqualWidthGroup::EqualWidthGroup(QList<QWidget*> widgets)
    : QObject(widgets.constFirst()), m_widgets(std::move(widgets))
{
    for (QWidget* widget : m_widgets)
        widget->installEventFilter(this);
    align();
}

bool EqualWidthGroup::eventFilter(QObject* watched, QEvent* event)
{
    const bool handled = QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::Polish:
    case QEvent::StyleChange:
    case QEvent::FontChange:
        // Queued, so that the widget handles the event first.
        QMetaObject::invokeMethod(this, &EqualWidthGroup::align, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return handled;
}

void EqualWidthGroup::align()
{
    for (const QWidget* widget : m_widgets)
        m_widest = std::max(m_widest, widget->sizeHint().width());
    for (QWidget* widget : m_widgets)
        widget->setMinimumWidth(m_widest);
}

} // namespace vanto
