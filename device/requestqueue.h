#pragma once

#include "handcall.h"

#include <QObject>

#include <list>

namespace vanto
{

/// Queues jobs while a conversation with a hand is in progress.
///
/// Requests of the user run in the order of the clicks, for the hand that was open at the click. Of
/// all other jobs only the last of each kind is kept. Waiting jobs run when the outermost
/// conversation has ended and no other job is running.
class RequestQueue : public QObject
{
    Q_OBJECT
public:
    /// Jobs that are not requests to a hand and therefore do not require an open hand.
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
        OpenNode,
        ScanRange,
        Continue,
        About,
        Theme
    };
    using Request = std::function<void(const HandTarget&)>;

    explicit RequestQueue(QObject* parent = nullptr);

    /// Runs a request to a hand, at once or after the jobs that wait. It is dropped if by then the
    /// target is stale or `isStillWanted` returns false.
    void request(const HandTarget& target, std::function<bool()> isStillWanted, Request action);
    /// Runs an action that may change the connection.
    void runWhenIdle(Kind kind, std::function<void()> action);

    /// Drops waiting requests to a hand, before a long operation.
    void dropRequests();
    /// Drops a waiting reload of the Basic page.
    void dropReload() { remove(Kind::ReloadBasic); }
    /// Opens About and Theme if they are waiting, and emits ConversationMonitor::sig_pause(). Long
    /// operations call this between two conversations, so that what waits need not wait for their
    /// end.
    void openWaitingDialogs();
    /// While held, no job runs: a halt comes first.
    void hold(bool held);
    /// Drops all waiting jobs and accepts no new ones.
    void shutDown();

    /// Whether a timer slot may communicate with the hand now; otherwise it skips the tick.
    bool canTick() const;
    /// Whether a job waits for the current conversation to end.
    bool hasWaitingJobs() const { return m_runningJobs == 0 && !m_waiting.empty(); }

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
    bool m_held = false;
    bool m_drainScheduled = false;
    int m_runningJobs = 0; ///< on the stack; a job may show dialogs between its conversations
    std::list<Job> m_waiting;
};

} // namespace vanto
