#pragma once

#include <QPointer>
#include <QWidget>

/// Gives the keyboard focus back to a control that lost it by being disabled for a while, so that
/// the next key press does not land on another control. Nothing is done when the person has moved
/// the focus meanwhile.
class FocusKeeper
{
public:
    explicit FocusKeeper(QWidget* window);
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

    /// To be called when the controls have just been disabled.
    void noteMove() { m_movedTo = m_window->focusWidget(); }

private:
    QWidget* m_window;
    QPointer<QWidget> m_owner;
    QPointer<QWidget> m_movedTo;
};
