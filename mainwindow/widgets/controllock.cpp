#include "controllock.h"

namespace vanto
{

ControlLock::ControlLock(QWidget* window, const QList<QWidget*>& widgets,
                         const QList<QAction*>& actions)
    : m_focus(window)
{
    for (QWidget* widget : widgets) {
        if (!widget->isEnabledTo(widget->parentWidget()))
            continue;
        m_widgets.append(widget);
        widget->setEnabled(false);
    }
    for (QAction* action : actions) {
        if (!action->isEnabled())
            continue;
        m_actions.append(action);
        action->setEnabled(false);
    }
    m_focus.recordFocusMove();
}

ControlLock::~ControlLock()
{
    for (QWidget* widget : m_widgets)
        widget->setEnabled(true);
    for (QAction* action : m_actions)
        action->setEnabled(true);
}

} // namespace vanto
