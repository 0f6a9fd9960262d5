#pragma once

#include "requestqueue.h"

#include <optional>

namespace vanto
{

/// The connection to a hand, and the functions through which all access to it passes.
///
/// Every exchange with a hand processes events while it waits, so a click or a timer event can
/// arrive while another one is being handled. These rules make that safe:
/// - stopAtOnce() takes effect at any nesting depth: it makes all targets stale, so that loops for
///   the old hand end, and stops timers and the player. It does not communicate with the hand.
/// - Changes of the connection use runWhenIdle(), which runs them when the line is idle. Of several
///   waiting changes of one kind only the last one runs.
/// - Requests of the user use request(), which runs them in the order of the clicks and always for
///   the hand that was open at the click.
/// - Timer slots return without doing anything unless canTick() returns true.
class DeviceSession : public QObject
{
    Q_OBJECT
public:
    using Kind = RequestQueue::Kind;
    /// The node of the current Devices entry, if any.
    using NodeSource = std::function<std::optional<std::uint8_t>()>;

    explicit DeviceSession(NodeSource currentNode, QObject* parent = nullptr);
    ~DeviceSession() override;

    /// Whether an adapter is open. Check this before closing.
    bool isConnected() const { return m_adapter != nullptr; }
    /// The hand to send to: an adapter is open, a Devices entry is current and no other hand has
    /// been requested since. Check this before sending.
    std::optional<HandTarget> target() const;
    /// The token of the current connection; stale after stopAtOnce().
    Generation::Token token() const { return m_epoch.token(); }

    /// Sets the adapter, opens the port for the current Devices entry and detects force sensing. If
    /// the port cannot be opened, later reads fail. Returns std::nullopt if there is no current
    /// entry, or if another hand has been requested meanwhile.
    std::optional<HandTarget> open(std::shared_ptr<VantoProtocol> adapter, const QString& port);
    void setAdapter(std::shared_ptr<VantoProtocol> adapter);
    /// Stops everything at once and closes the adapter, which must be open.
    void close();
    void closeIfConnected();

    bool hasForceSensing() const { return m_forceSensing; }
    void clearForceSensing() { m_forceSensing = false; }

    void stopAtOnce();
    /// Like stopAtOnce(), but permanent: waiting jobs are dropped and new ones ignored.
    void shutDown();
    /// Stops playback, before dialogs that would cover the Stop button.
    void stopMotion() { emit sig_stopMotion(); }

    /// If the request has to wait, it runs only if `isStillWanted` then returns true.
    void request(std::function<bool()> isStillWanted, RequestQueue::Request action);
    void runWhenIdle(Kind kind, std::function<void()> action)
    {
        m_queue.runWhenIdle(kind, std::move(action));
    }
    void dropRequests() { m_queue.dropRequests(); }
    void openWaitingDialogs() { m_queue.openWaitingDialogs(); }
    bool canTick() const { return m_queue.canTick(); }
    bool hasWaitingJobs() const { return m_queue.hasWaitingJobs(); }

signals:
    /// Timers and the player must stop now.
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
