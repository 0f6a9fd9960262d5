#pragma once

#include "focuskeeper.h"

#include <QAction>
#include <QList>

namespace vanto
{

/// Disables controls for as long as it exists. Afterwards each is as it was before, and the
/// keyboard focus is where it was.
class ControlLock
{
public:
    ControlLock(QWidget* window, const QList<QWidget*>& widgets, const QList<QAction*>& actions);
    ~ControlLock();
    ControlLock(const ControlLock&) = delete;
    ControlLock& operator=(const ControlLock&) = delete;

private:
    FocusKeeper m_focus;
    QList<QWidget*> m_widgets; ///< that were enabled
    QList<QAction*> m_actions;
};

} // namespace vanto
