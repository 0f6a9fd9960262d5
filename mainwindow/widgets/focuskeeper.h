#pragma once

#include <QPointer>
#include <QWidget>

namespace vanto
{

/// Returns the keyboard focus to a control that lost it by being disabled temporarily, so that the
/// next key press does not reach another control. Does nothing if the user has moved the focus
/// meanwhile.
class FocusKeeper
{
public:
    /// Focus changes inside `region` are not the user's: keys that are held down act there once the
    /// control that they were meant for is disabled.
    explicit FocusKeeper(QWidget* window, const QWidget* region = nullptr);
    ~FocusKeeper();
    FocusKeeper(const FocusKeeper&) = delete;
    FocusKeeper& operator=(const FocusKeeper&) = delete;

    /// Call this right after disabling the controls.
    void recordFocusMove() { m_movedTo = m_window->focusWidget(); }

private:
    QWidget* m_window;
    QPointer<const QWidget> m_region;
    QPointer<QWidget> m_owner;
    QPointer<QWidget> m_movedTo;
};

} // namespace vanto
