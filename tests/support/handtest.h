#pragma once

#include "conversation.h"
#include "handprocess.h"
#include "testmain.h"
#include "testwindow.h"

namespace vanto
{

/// A test of the real window against simulated hands on a real serial device.
class HandTest : public QObject
{
    Q_OBJECT
protected:
    /// Starts the hands, lists the first `hands` of them, without a scan, and opens the first.
    void open(const QStringList& options = {"--node", "2"}, int hands = 1);
    /// Lists the same hands again, and opens the first.
    void listAgain() const { m_tool->list(m_listed); }
    /// For tests in which a hand does not answer: the time-outs of hands that are opened from now
    /// on, up to close(). Without this call they are so long that a busy machine meets none.
    void expectTimeouts(int milliseconds = 600);
    /// Runs `act` as soon as an exchange with a hand is under way, inside its wait.
    void duringExchange(std::function<void()> act) const;
    /// Whether nothing is under way between the window and a hand.
    static bool idle() { return !Conversation::busy(); }
    /// Forgets frames and texts until now.
    void forget();
    /// No two exchanges may have overlapped.
    void close();

    /// Gives the hands a command that they must accept.
    void tell(const QString& command) const;
    QStringList frames(const QList<int>& commands = {}) const { return m_hand->frames(commands); }
    QStringList writes() const { return m_hand->modbusWrites(); }
    QStringList addressed() const { return m_hand->addressed(); }
    QStringList shown() const { return m_tool->shownTexts(); }

    ReplyLimits m_limits = PatientLimits;
    QStringList m_listed; ///< texts in the Devices list
    std::unique_ptr<HandProcess> m_hand;
    std::unique_ptr<TestWindow> m_tool;
};

} // namespace vanto
