#pragma once

#include <QObject>

namespace vanto
{

/// A scope in which exchanges with a hand may happen.
///
/// Everything runs on the user-interface thread, and every exchange processes events while it
/// waits, so any slot or timer can run during the wait. Code that communicates with a hand has a
/// conversation on the stack, by a HandCall or a LineHold; code that must not interrupt one checks
/// isActive() first. A conversation never spans a dialog: an exchange behind a dialog times out.
class Conversation
{
public:
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    /// Whether any conversation of this process is on the stack.
    static bool isActive();

private:
    friend class LineHold; // the only class that may start one
    Conversation();
    ~Conversation();
};

/// Emits a signal when the outermost conversation ends.
class ConversationMonitor : public QObject
{
    Q_OBJECT
public:
    static ConversationMonitor& instance();

signals:
    void sig_quiet();
};

/// One adapter operation, on the stack of that operation. Two exchanges at a time would mix their
/// frames on one line, and an exchange outside a conversation could overlap another one. Both are
/// programming errors and are asserted.
class Exchange
{
public:
    Exchange();
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    static bool active();
    /// Stops the current exchange, if any: it sends no further request and repeats no write. Its
    /// result is a failure, unless it waits for its last request and the hand answers that.
    static void abandon();
    static bool abandoned();
};

} // namespace vanto
