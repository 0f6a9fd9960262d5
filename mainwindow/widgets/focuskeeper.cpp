#include "focuskeeper.h"

namespace vanto
{

FocusKeeper::FocusKeeper(QWidget* window, const QWidget* region)
    : m_window(window), m_region(region), m_owner(window->focusWidget()), m_movedTo(m_owner)
{
}

FocusKeeper::~FocusKeeper()
{
    const QWidget* focus = m_window->focusWidget();
    const bool isUnchanged =
        focus == m_movedTo || (m_region && focus && m_region->isAncestorOf(focus));
    if (m_owner && m_owner->isEnabled() && m_owner->isVisible() && isUnchanged)
        m_owner->setFocus();
}

} // namespace vanto
