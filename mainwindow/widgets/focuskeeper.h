#pragma once

#include <QPointer>
#include <QWidget>

namespace vanto
{

/// Gives the keyboard focus back to a control that lost it by being disabled for a while, so that
/// the next key press does not land on another control. Nothing is done when the person has moved
/// the focus meanwhile.
class FocusKeeper
{
public:
    /// A move of the focus inside `region` is none of the person's: keys that are held down go on
    /// there when the control that they were meant for is disabled.
    explicit FocusKeeper(QWidget* window, const QWidget* region = nullptr);
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

    /// To be called when the controls have just been disabled.
    void noteMove() { m_movedTo = m_window->focusWidget(); }

private:
    QWidget* m_window;
    QPointer<const QWidget> m_region;
    QPointer<QWidget> m_owner;
    QPointer<QWidget> m_movedTo;
};

} // namespace vanto
