#pragma once

#include <QObject>

namespace vanto
{

/// A scope in which exchanges with a hand are allowed.
///
/// Everything runs on the user-interface thread, and every exchange processes events while it
/// waits, so any slot or timer can run during the wait. Code that communicates with a hand
/// therefore keeps a HandCall or a LineHold on the stack, which contains a conversation; code that
/// must not interrupt one checks isActive() first. Do not open a dialog during a conversation: an
/// exchange in progress would time out.
class Conversation
{
public:
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    /// Whether any conversation of this process is on the stack.
    static bool isActive();
    /// Whether the conversation in progress only reads in the background. A tick that it prevents
    /// should follow when the line is idle, as many such conversations may follow each other.
    static bool isBackground();

private:
    friend class LineHold; // the only class that may start one
    friend class HandCall;
    Conversation();
    ~Conversation();
    /// For the conversation in progress.
    static void setBackground();
};

/// Emits a signal when the outermost conversation ends.
class ConversationMonitor : public QObject
{
    Q_OBJECT
public:
    static ConversationMonitor& instance();

signals:
    void sig_idle();
    /// Long work without a return to the event loop pauses: no exchange is in progress, and none
    /// begins before the receivers have returned. They must not start one.
    void sig_pause();
};

/// One adapter operation, on the stack of that operation. Two simultaneous exchanges would mix
/// their frames on one line, and an exchange outside a conversation could overlap another one. Both
/// are programming errors and are asserted.
class Exchange
{
public:
    Exchange();
    ~Exchange();
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    static bool active();
    /// Stops the current exchange, if any: it sends no further request and does not repeat a write.
    /// It fails unless it is waiting for the reply to its last request and receives that reply.
    static void abandon();
    static bool abandoned();
};

} // namespace vanto
