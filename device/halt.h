#pragma once

#include "devicesession.h"
#include "fingers.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <array>
#include <functional>
#include <vector>

namespace vanto
{

/// Stops all fingers of the hand that was opened last, and keeps them stopped until the user
/// continues.
///
/// press() takes effect at any nesting depth. From then until the fingers are known to stand, the
/// gate of HandCall lets nothing else pass. The halt does not use the request queue, which waits
/// while a handler shows a dialog; it begins as soon as the exchange in progress has ended.
///
/// Over SerialCtrl `fingerStop` comes first, which stops the fingers at once but leaves their old
/// targets behind. Then, over both protocols, every finger gets its position as target, unless it
/// has arrived; so what is held lightly is not dropped. Speed 1 is used, because over Modbus the
/// speeds are written before the targets, and a hand that applied a higher speed at once would
/// first accelerate towards the old target.
class Halt : public QObject
{
    Q_OBJECT
public:
    enum class State {
        Ready,
        Halting,
        Halted,       ///< motions are refused until proceed()
        NotConfirmed, ///< the hand does not confirm that its fingers stand; tried again
        SentToAll     ///< sent to node 255 of a bus without a listed hand; cannot be confirmed
    };
    /// The nodes of the listed hands that speak SerialCtrl.
    using ListedNodes = std::function<std::vector<std::uint8_t>()>;

    Halt(DeviceSession* session, ListedNodes listedNodes, QObject* parent = nullptr);
    ~Halt() override;

    State state() const { return m_state; }
    /// A state for the user; empty for Ready.
    static QString stateText(State state);
    /// For sig_unreachable().
    static QString unreachableText();
    /// Whether there is a hand to halt.
    bool isAvailable() const { return m_adapter != nullptr && !m_blocked; }
    /// During a firmware transfer there is none.
    void setBlocked(bool blocked);

    /// Whether a halt is in progress, or waits for the end of an exchange.
    bool isPending() const;
    /// Halts the hand. Does nothing while a halt is in progress.
    void press();
    /// Halts these hands on the port of the hand, instead of the hand itself.
    void haltNodes(const std::vector<std::uint8_t>& nodes);
    /// Another hand on the open port is meant from now on; what has been halted stays halted.
    void address(std::uint8_t node) { m_node = node; }
    /// Ends a confirmed halt. Waits for the line, as it is not urgent.
    void proceed();

signals:
    void sig_stateChanged();
    /// The fingers stand; the pages may read again.
    void sig_halted();
    /// The port of the hand is not there, so nothing can be sent.
    void sig_unreachable();
    void sig_continued();
    /// The hand has refused to continue.
    void sig_notContinued();

private:
    using Positions = PerFinger<std::uint16_t>;
    /// A hand that is halted: the one that is open or, for node 255, each listed one.
    struct Hand {
        std::uint8_t node = 0;
        std::optional<Positions> goals; ///< the targets that have been chosen for the fingers
        bool confirmed = false;
    };
    /// Hands of a port that have been halted and not continued. The motions of all hands of this
    /// port are refused, as one hand can be listed with several nodes and protocols.
    struct Latch {
        QString port;
        std::shared_ptr<VantoProtocol> adapter;
        std::vector<std::uint8_t> nodes;
    };

    void noteOpened();
    bool interruptAll();
    void leave();
    void finishBeforeExit();
    void setState(State state);
    void follow(std::uint8_t newNode);
    void followPort();
    bool isSerialCtrl() const;
    bool isAnyNode() const;
    Latch* latch();
    HandTarget target(std::uint8_t node) const;
    bool openPort(const std::shared_ptr<VantoProtocol>& adapter) const;

    void startWhenIdle();
    void run();
    bool runOnLine();
    bool tryAll();
    bool halt(Hand& hand);
    void finish(bool confirmed);
    void latchHands();
    void continueHands();
    bool startFingers(const Latch& latch);

    DeviceSession* m_session;
    ListedNodes m_listedNodes;
    std::shared_ptr<VantoProtocol> m_adapter; ///< of the hand that was opened last
    PortEntry m_port;
    std::uint8_t m_node = 0;
    bool m_open = false; ///< it is the open one
    std::vector<Latch> m_latches;
    State m_state = State::Ready;
    Generation m_run; ///< advanced when the hand is left or the port is lost
    std::vector<Hand> m_hands;
    QTimer m_retry{this};
    QDeadlineTimer m_lastTry{QDeadlineTimer::Forever};
    int m_failures = 0;     ///< in a row
    bool m_waiting = false; ///< for the end of the conversation in progress
    bool m_running = false;
    bool m_blocked = false;
};

} // namespace vanto
