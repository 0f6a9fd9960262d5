#pragma once

#include "focuskeeper.h"

#include <QAction>
#include <QList>

namespace vanto
{

/// Disables controls while it exists. Afterwards each control has its previous state, and the
/// keyboard focus is restored.
class ControlLock
{
public:
    ControlLock(QWidget* window, const QList<QWidget*>& widgets, const QList<QAction*>& actions);
    ~ControlLock();
    ControlLock(const ControlLock&) = delete;
    ControlLock& operator=(const ControlLock&) = delete;

private:
    FocusKeeper m_focus;
    QList<QWidget*> m_widgets; ///< those that were enabled
    QList<QAction*> m_actions;
};

} // namespace vanto
