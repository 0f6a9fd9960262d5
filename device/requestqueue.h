#pragma once

#include "handcall.h"

#include <QObject>

#include <list>

namespace vanto
{

/// What waits for its turn while a conversation with a hand is under way.
///
/// Requests of the user run in the order of the clicks, for the hand that was open at the click.
/// Of everything else only the last of a kind is kept. What waits runs when the outermost
/// conversation has ended and nothing else is being handled.
class RequestQueue : public QObject
{
    Q_OBJECT
public:
    /// What is not a request to a hand, and so needs no open hand.
    enum class Kind {
        RefreshPorts,
        ChangePort,
        ChangeDevice,
        Update,
        Scan,
        ReloadBasic,
        ReloadRun,
        LoadSequence,
        SaveSequence,
        About,
        Theme
    };
    using Request = std::function<void(const HandTarget&)>;

    explicit RequestQueue(QObject* parent = nullptr);

    /// Runs a request to a hand, at once or in its turn. Dropped if by then the target is no longer
    /// current or `isStillWanted` says no.
    void request(const HandTarget& target, std::function<bool()> isStillWanted, Request action);
    /// Runs an action that may change what is connected.
    void runWhenIdle(Kind kind, std::function<void()> action);

    /// Forgets the requests that wait, before something that takes long.
    void dropRequests();
    /// For long work, between two conversations: opens About and Theme if they have been asked for,
    /// so that they need not wait for its end.
    void openWaitingDialogs();
    /// Forgets all that waits and takes nothing more.
    void shutDown();

    /// Whether periodic work may be done now; if not it skips a tick.
    bool canTick() const;
    /// Whether a user's request waits for the present conversation to end.
    bool hasWaiting() const { return m_handling == 0 && !m_waiting.empty(); }

private:
    struct Job {
        std::optional<Kind> kind;
        std::optional<HandTarget> target;
        std::function<bool()> isStillWanted;
        std::function<void()> action;
    };

    bool isIdle() const;
    void submit(Job job);
    void enqueue(Job job);
    void enqueueConnectionChange(Job job);
    void remove(std::optional<Kind> kind);
    void run(const Job& job);
    void scheduleDrain();
    void drain();

    bool m_shutDown = false;
    bool m_drainScheduled = false;
    int m_handling = 0; ///< jobs on the stack; a job may show dialogs between its conversations
    std::list<Job> m_waiting;
};

} // namespace vanto
