#pragma once

#include "halt.h"

#include <QElapsedTimer>

class QDialogButtonBox;
class QKeyEvent;
class QPushButton;

namespace vanto
{

class StatusReporter;

/// The Halt button, its keys and its messages. The keys also work under modal dialogs: Pause and
/// Shift+Esc everywhere, Esc where no dialog and no open list takes it.
class HaltControl : public QObject
{
    Q_OBJECT
public:
    HaltControl(QPushButton* button, DeviceSession* session, StatusReporter* reporter,
                Halt::ListedNodes listedNodes);

    Halt& halt() { return m_halt; }
    /// Adds a Halt button to a dialog, which covers that of the window.
    void addTo(QDialogButtonBox* buttons);
    /// What the state means, in the row above the pages and on the button; empty while there is
    /// nothing to say.
    static QString stateText(Halt::State state);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void press();
    void click();
    void update();
    void report();
    bool isHaltKey(const QKeyEvent& event) const;

    QPushButton* m_button;
    StatusReporter* m_reporter;
    Halt m_halt;
    Halt::State m_shown = Halt::State::Ready;
    bool m_pressHalts = false; ///< the press of the button that is in progress
    QElapsedTimer m_sinceHalted;
};

} // namespace vanto
