#pragma once

#include <QObject>

/// A stretch of one slot in which exchanges with a hand may happen.
///
/// Everything runs on the user-interface thread and every exchange processes events while it
/// waits, so any slot or timer can arrive in the middle of any other. Whoever talks to a hand
/// puts a Conversation on the stack; whoever may not interrupt asks busy() first. A conversation
/// never spans a dialog: a dialog opened inside an exchange makes that exchange time out.
class Conversation
{
public:
    Conversation();
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    /// Whether any conversation of this process is on the stack.
    static bool busy();
};

/// Tells when the outermost conversation has ended.
class ConversationMonitor : public QObject
{
    Q_OBJECT
public:
    static ConversationMonitor& instance();

signals:
    void sig_quiet();
};

/// One adapter operation, on the stack of that operation. Two at a time would mix up two
/// conversations on one wire; that is a programming error and asserted.
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
