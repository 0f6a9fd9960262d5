#pragma once

#include "focuskeeper.h"

#include <QAction>
#include <QList>

namespace vanto
{

/// Disables controls while it exists. The destructor restores the previous state of each control
/// and the keyboard focus.
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
