#pragma once

#include "handidentity.h"
#include "portlist.h"
#include "requestqueue.h"

#include <QTimer>

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

    /// What the user is told about the connection.
    enum class State { NotConnected, Scanning, Connected, NoAnswer, PortLost, NoHandChosen };
    State state() const;
    void setScanning(bool scanning);
    /// Whether the hand has left the last operations unanswered. Periodic work then rests; once a
    /// second the session asks by itself.
    bool isSilent() const { return m_timeouts >= TimeoutsOfSilence; }
    /// A session that is not watched never asks a silent hand by itself. It is watched at first.
    void setWatched(bool watched) { m_watched = watched; }
    /// Whether the port of the open hand is closed: it has vanished, or could not be opened.
    bool isPortClosed() const { return isConnected() && (m_lost || !m_portOpened); }

    /// What is known about the open hand; filled by what reads it.
    HandIdentity& identity() { return m_identity; }
    const PortEntry& port() const { return m_port; }
    /// The hand that was open when the port was lost.
    std::optional<HandTarget> lostHand() const;
    /// Stale once the port has been lost again.
    Generation::Token lossToken() const { return m_loss.token(); }
    /// Tries to open a closed port again, if it is still that of the same adapter. True if it is
    /// open then.
    bool reopenPort();
    /// Takes up the connection again after its port has been lost and opened again.
    void resume(const PortEntry& port);

    /// Sets the adapter, opens the port for the current Devices entry and detects force sensing. If
    /// the port cannot be opened, later reads fail. Returns std::nullopt if there is no current
    /// entry, or if another hand has been requested meanwhile.
    std::optional<HandTarget> open(std::shared_ptr<VantoProtocol> adapter, const PortEntry& port);
    /// The same without the detection of force sensing: exchanges nothing with the hand.
    std::optional<HandTarget> openPort(std::shared_ptr<VantoProtocol> adapter,
                                       const PortEntry& port);
    void setAdapter(std::shared_ptr<VantoProtocol> adapter);
    /// Stops everything at once and closes the adapter, which must be open.
    void close();
    void closeIfConnected();

    bool hasForceSensing() const { return m_forceSensing; }
    void clearForceSensing() { m_forceSensing = false; }

    void stopAtOnce();
    /// Stops everything at once; the open hand stays open for requests from now on.
    void interrupt();
    /// The open hand has got a new id.
    void setNode(std::uint8_t node);
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
    /// While held, no job runs: a halt comes first.
    void holdJobs(bool held) { m_queue.hold(held); }
    void openWaitingDialogs() { m_queue.openWaitingDialogs(); }
    bool canTick() const { return m_queue.canTick(); }
    bool hasWaitingJobs() const { return m_queue.hasWaitingJobs(); }

signals:
    /// A hand is about to be read for the first time.
    void sig_opened();
    /// The port has been opened again for the same hand; its name may be another one.
    void sig_resumed();
    /// The adapter has been closed.
    void sig_closed();
    void sig_nodeChanged(std::uint8_t node);
    /// Timers and the player must stop now.
    void sig_stop();
    /// What could move a finger later must be forgotten as well, such as a slider that is held.
    void sig_interrupted();
    void sig_shutDown();
    void sig_stopMotion();
    /// The state may have changed.
    void sig_stateChanged();
    /// The port of the open hand has vanished; everything has been stopped. This can be emitted
    /// inside an exchange.
    void sig_portLost();
    void sig_noAnswer();
    void sig_answersAgain();
    /// After a silence another hand than before answers; the connection has been closed.
    void sig_otherHand(const QString& description);

private:
    static constexpr int TimeoutsOfSilence = 3;

    void stop(bool keepOpen);
    void losePort();
    void noteResult(std::uint8_t result);
    void askSilentHand();

    NodeSource m_currentNode;
    std::shared_ptr<VantoProtocol> m_adapter;
    Generation m_epoch;
    Generation::Token m_opened; ///< epoch in which the adapter was opened
    bool m_forceSensing = false;
    RequestQueue m_queue;
    PortEntry m_port;
    HandIdentity m_identity;
    std::uint8_t m_node = 0; ///< of the open hand
    bool m_portOpened = false;
    bool m_lost = false;
    bool m_handWasOpen = false; ///< when the port was lost
    Generation m_loss;
    bool m_scanning = false;
    bool m_watched = true;
    bool m_asking = false; ///< askSilentHand() is under way
    int m_timeouts = 0;    ///< in a row
    QTimer m_askTimer{this};
};

} // namespace vanto
