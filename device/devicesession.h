#pragma once

#include "requestqueue.h"

#include <optional>

namespace vanto
{

/// The connection to a hand, and the entries through which everything that concerns it passes.
///
/// Every exchange with a hand processes events while it waits, so a click or a timer can arrive
/// while another is handled. The rules that keep this safe:
/// - stopAtOnce() acts at any depth: it makes all targets stale, by which loops for the old hand
///   see that they are no longer wanted, and has timers and player stopped. It exchanges nothing.
/// - What changes the connection goes through runWhenIdle(): at once when nothing is under way,
///   else when the line is idle; of each kind the last one wins.
/// - What the user asks of the hand goes through request(): at once, or later in the order of the
///   clicks, and always for the hand that was open at the click.
/// - Timers ask canTick() and otherwise skip a tick.
class DeviceSession : public QObject
{
    Q_OBJECT
public:
    using Kind = RequestQueue::Kind;
    /// The node that the current Devices entry stands for, if there is one.
    using NodeSource = std::function<std::optional<std::uint8_t>()>;

    explicit DeviceSession(NodeSource currentNode, QObject* parent = nullptr);
    ~DeviceSession() override;

    /// Whether an adapter is open. What closes asks this.
    bool connected() const { return m_adapter != nullptr; }
    /// The hand that may be sent to: an adapter is open, a Devices entry is current and nothing has
    /// asked for another hand since. What sends asks this.
    std::optional<HandTarget> target() const;
    /// Of the present connection: stale after stopAtOnce().
    Generation::Token token() const { return m_epoch.token(); }

    /// Takes the adapter and opens the port for the current Devices entry; finds out whether the
    /// hand has force sensing. Whether the port opens is shown by the reads that follow. None if
    /// there is no current entry, or something has asked for another hand meanwhile.
    std::optional<HandTarget> open(std::shared_ptr<VantoProtocol> adapter, const QString& port);
    void setAdapter(std::shared_ptr<VantoProtocol> adapter);
    /// Stops everything at once and closes the adapter, which must be open.
    void close();
    void closeIfConnected();

    bool hasForceSensing() const { return m_forceSensing; }
    void forgetForceSensing() { m_forceSensing = false; }

    void stopAtOnce();
    /// stopAtOnce() for good: nothing that waits is done any more.
    void shutDown();
    /// Ends a play, before dialogs that would cover the Stop button.
    void stopMotion() { emit sig_stopMotion(); }

    /// `isStillWanted` is asked when a request that had to wait gets its turn.
    void request(std::function<bool()> isStillWanted, RequestQueue::Request action);
    void runWhenIdle(Kind kind, std::function<void()> action)
    {
        m_queue.runWhenIdle(kind, std::move(action));
    }
    void dropRequests() { m_queue.dropRequests(); }
    void openWaitingDialogs() { m_queue.openWaitingDialogs(); }
    bool canTick() const { return m_queue.canTick(); }
    bool requestWaits() const { return m_queue.hasWaiting(); }

signals:
    /// Timers and the player stop now.
    void sig_stop();
    void sig_stopMotion();

private:
    NodeSource m_currentNode;
    std::shared_ptr<VantoProtocol> m_adapter;
    Generation m_epoch;
    Generation::Token m_opened; ///< epoch in which the adapter was opened
    bool m_forceSensing = false;
    RequestQueue m_queue;
};

} // namespace vanto
