#include "focuskeeper.h"

FocusKeeper::FocusKeeper(QWidget* window)
    : m_window(window), m_owner(window->focusWidget()), m_movedTo(m_owner)
{
}

FocusKeeper::~FocusKeeper()
{
    if (m_owner && m_owner->isEnabled() && m_owner->isVisible() &&
        m_window->focusWidget() == m_movedTo)
        m_owner->setFocus();
}
