#pragma once

#include "conversation.h"
#include "handprocess.h"
#include "testmain.h"
#include "testwindow.h"

namespace vanto
{

/// Base class of tests that run the real window against simulated hands on a pseudo-terminal.
class HandTest : public QObject
{
    Q_OBJECT
protected:
    /// Starts the hands, lists the first `hands` of them without a scan, and opens the first.
    void open(const QStringList& options = {"--node", "2"}, int hands = 1);
    /// Lists the same hands again, and opens the first.
    void listAgain() const { m_tool->list(m_listed); }
    /// Sets the time-outs from now, or from the end of open(), until close(), for tests in which a
    /// hand does not answer. Without this call they are so long that none occurs on a busy machine.
    void expectTimeouts(int milliseconds = 600);
    /// Runs `act` as soon as an exchange with a hand waits for the reply, from inside that wait.
    void duringExchange(std::function<void()> act) const;
    /// Whether no conversation between the window and a hand is in progress.
    static bool idle() { return !Conversation::isActive(); }
    /// Clears the recorded frames and texts.
    void clearRecords();
    /// Checks that no exchanges overlapped, then closes the window and ends the hands.
    void close();

    /// Sends a control command to the hands, which must accept it.
    void command(const QString& line) const;
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
