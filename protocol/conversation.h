#pragma once

#include <QObject>

namespace vanto
{

/// A stretch of one slot in which exchanges with a hand may happen.
///
/// Everything runs on the user-interface thread and every exchange processes events while it waits,
/// so any slot or timer can run while another waits. What talks to a hand has a conversation on the
/// stack, by a HandCall or a LineHold; what may not interrupt asks busy() first. A conversation
/// never spans a dialog: a dialog opened inside an exchange makes that exchange time out.
class Conversation
{
public:
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    /// Whether any conversation of this process is on the stack.
    static bool busy();

private:
    friend class LineHold; // begins it, so that nothing else does
    Conversation();
    ~Conversation();
};

/// Reports when the outermost conversation has ended.
class ConversationMonitor : public QObject
{
    Q_OBJECT
public:
    static ConversationMonitor& instance();

signals:
    void sig_quiet();
};

/// One adapter operation, on the stack of that operation. Two at a time would mix up two
/// conversations on one wire, and one outside a conversation could meet another; both are
/// programming errors and asserted.
class Exchange
{
public:
    Exchange();
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    static bool active();
    /// For whoever must have nothing more sent at once: the exchange that is under way, if any,
    /// sends no further request and repeats no write. Its result is a failure, unless what it waits
    /// for was its last request and is answered.
    static void abandon();
    static bool abandoned();
};

} // namespace vanto
