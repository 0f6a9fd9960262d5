#pragma once

#include "bootloader.h"
#include "faults.h"
#include "framereceiver.h"
#include "hand.h"
#include "line.h"
#include "motiontrace.h"
#include "trace.h"

#include <cstdint>
#include <vector>

namespace vanto::simulator
{

struct Node {
    Protocols protocols;
    Hand hand;
};

struct BusStatistics {
    std::uint64_t requests = 0; ///< valid frames, including those for absent nodes
    std::uint64_t replies = 0;
    std::uint64_t overlaps = 0;
    std::uint64_t dropped = 0; ///< replies that a fault or "hang" suppressed
    std::uint64_t bad = 0;     ///< frames with a wrong checksum
};

/// The hands on one line: receives requests, forwards them to the hands and applies armed faults to
/// the replies.
class Bus : public QObject
{
    Q_OBJECT

public:
    Bus(std::vector<Node> nodes, Line& line, Trace& trace, const BootOptions& boot = {},
        QObject* parent = nullptr);

    Hand* findHand(std::uint8_t id);
    std::vector<Node>& nodes() { return m_nodes; }
    FaultList& faults() { return m_faults; }
    BootLoader& bootLoader() { return m_bootLoader; }
    /// Returns false if no hand is switched on.
    bool enterBootLoader();
    void powerCycle(Hand& hand);
    void setHung(bool hung) { m_hung = hung; }
    /// Whether the replies of several hands to node 255 collide; otherwise one hand answers.
    void setColliding(bool colliding) { m_colliding = colliding; }
    MotionTrace& motionTrace() { return m_motionTrace; }
    const BusStatistics& statistics() const { return m_statistics; }

private:
    void receive(const QByteArray& bytes, TimePoint startTime);
    void handleFrame(const ReceivedFrame& received);
    void recordFrame(const ReceivedFrame& received);
    void handleRequest(const Frame& request);
    void handleRequest(const ModbusFrame& request);
    void handleRequest(const BootRequest& request);
    Hand* bootLoaderHand();
    std::vector<Hand*> addressedHands(Peer peer, std::uint8_t allNodes);
    void deliver(const Delivery& delivery, Peer peer, const Fault& fault);
    void send(const QByteArray& bytes, Peer peer, const QStringList& marks, bool awaited);
    void withhold(Peer peer, const QString& fault);
    void discardReplies();

    std::vector<Node> m_nodes;
    Line& m_line;
    Trace& m_trace;
    MotionTrace m_motionTrace;
    FrameReceiver m_receiver;
    BootLoader m_bootLoader;
    FaultList m_faults;
    BusStatistics m_statistics;
    bool m_hung = false;
    bool m_colliding = false;
    int m_pendingReplies = 0;
    TimePoint m_lastReplyWritten{};
    std::unique_ptr<QObject> m_delayedReplies; ///< context object of their timers
};

} // namespace vanto::simulator
