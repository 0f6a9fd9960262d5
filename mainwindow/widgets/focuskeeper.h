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
    /// Ignores focus changes inside `region`: if a control is disabled while a key is held down,
    /// the key may move the focus there.
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
