#pragma once

#include "vantoprotocol.h"

#include <QObject>

#include <functional>
#include <list>
#include <memory>
#include <optional>

/// The connection to a hand, and the doors through which everything that concerns it passes.
///
/// Every exchange with a hand processes events while it waits, so a click or a timer can arrive
/// in the middle of it. The rules that keep this safe:
/// - stopAtOnce() acts at any depth: it raises the epoch, by which loops for the old device see
///   that they are no longer wanted, and has timers and player stopped. It exchanges nothing.
/// - What changes the connection goes through whenQuiet(): at once when nothing is under way,
///   else when it is quiet; of each kind the last one wins.
/// - What a person asks of the hand goes through ask(): at once, or later in the order of the
///   clicks, and always for the device that was open at the click.
/// - Timers ask tickMayRun() and otherwise skip a beat.
class DeviceSession : public QObject
{
    Q_OBJECT
public:
    /// The node that the current Devices entry stands for, if there is one.
    using NodeSource = std::function<std::optional<std::uint8_t>()>;

    /// A device as it was when something was asked of it.
    struct Target {
        std::shared_ptr<VantoProtocol> adapter;
        std::uint8_t node = 0;
        quint64 epoch = 0;

        VantoProtocol* operator->() const { return adapter.get(); }
    };

    /// Kinds of actions that wait for quiet; one of each is kept. Those up to Scan change the
    /// connection and get their turns in this order.
    enum class Change {
        RefreshPorts,
        Port,
        Device,
        Update,
        Scan,
        ReloadBasic,
        ReloadSetting,
        ReloadRun,
        LoadSequence,
        SaveSequence,
        About,
        Theme
    };

    explicit DeviceSession(NodeSource currentNode, QObject* parent = nullptr);
    ~DeviceSession() override;

    /// Whether an adapter is open. Whoever closes asks this.
    bool connected() const { return m_adapter != nullptr; }
    /// The device that may be sent to: an adapter is open, a Devices entry is current and nothing
    /// has asked for another device since. Whoever sends asks this.
    std::optional<Target> target() const;
    quint64 epoch() const { return m_epoch; }
    /// Whether nothing has changed or stopped the connection since `target` was taken.
    bool holds(const Target& target) const { return target.epoch == m_epoch; }

    void setAdapter(std::shared_ptr<VantoProtocol> adapter);
    /// Stops everything at once and closes the adapter, which must be open.
    void close();
    void closeIfConnected();

    bool hasForceSensing() const { return m_forceSensing; }
    void setForceSensing(bool present) { m_forceSensing = present; }

    void stopAtOnce();
    /// stopAtOnce() for good: nothing that waits is done any more.
    void shutDown();

    using Request = std::function<void(const Target&)>;
    /// `stillWanted` is asked when a request that had to wait gets its turn.
    void ask(std::function<bool()> stillWanted, Request request);
    void whenQuiet(Change kind, std::function<void()> action);
    /// Forgets the requests that wait, before something that takes long.
    void dropRequests();
    /// Ends a play, before dialogs that would keep people from the Stop button.
    void stopMotion() { emit sig_stopMotion(); }
    /// For long jobs, between two conversations: opens About and Theme if they have been asked
    /// for, so that they need not wait for the end of the job.
    void openWaitingDialogs();
    bool tickMayRun() const;
    /// Whether a person's request waits for the present conversation to end.
    bool requestWaits() const { return m_handling == 0 && !m_waiting.empty(); }

signals:
    /// Timers and the player stop now.
    void sig_stop();
    void sig_stopMotion();

private:
    struct Job {
        std::optional<Change> kind;
        std::optional<Target> target;
        std::function<bool()> stillWanted;
        std::function<void()> action;
    };

    bool idle() const;
    static bool changesConnection(const Job& job);
    void submit(Job job);
    void enqueue(Job job);
    void run(const Job& job);
    void scheduleDrain();
    void drain();

    NodeSource m_currentNode;
    std::shared_ptr<VantoProtocol> m_adapter;
    quint64 m_epoch = 0;
    quint64 m_openEpoch = 0; ///< epoch at which the adapter was opened
    bool m_forceSensing = false;
    bool m_shutDown = false;
    bool m_drainScheduled = false;
    int m_handling = 0; ///< jobs on the stack; a job may show dialogs between its conversations
    std::list<Job> m_waiting;
};
