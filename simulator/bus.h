#pragma once

#include "bootloader.h"
#include "faults.h"
#include "framereceiver.h"
#include "hand.h"
#include "line.h"
#include "trace.h"

#include <vector>

namespace vanto::simulator
{

struct Node {
    Protocols protocols;
    Hand hand;
};

struct BusStatistics {
    quint64 requests = 0; // whole frames with a good checksum, also those for absent nodes
    quint64 replies = 0;
    quint64 overlaps = 0;
    quint64 dropped = 0; // replies that a fault or the hang kept back for good
    quint64 bad = 0;     // frames with a wrong checksum
};

// The hands on one line: takes requests from the wire, lets the hands answer, and lets armed
// faults spoil the replies.
class Bus : public QObject
{
    Q_OBJECT

public:
    Bus(std::vector<Node> nodes, Line& line, Trace& trace, const BootOptions& boot = {},
        QObject* parent = nullptr);

    Hand* find(quint8 id);
    std::vector<Node>& nodes() { return m_nodes; }
    FaultList& faults() { return m_faults; }
    BootLoader& bootLoader() { return m_bootLoader; }
    // False if there is no hand to do so.
    bool enterBootLoader();
    void powerCycle(Hand& hand);
    void setHung(bool hung) { m_hung = hung; }
    const BusStatistics& statistics() const { return m_statistics; }

private:
    void receive(const QByteArray& bytes, Moment began);
    void take(const ReceivedFrame& received);
    void note(const ReceivedFrame& received);
    void answer(const Frame& request);
    void answer(const ModbusFrame& request);
    void answer(const BootRequest& request);
    Hand* bootHand();
    std::vector<Hand*> addressed(Peer peer, quint8 allNodes);
    void deliver(const Delivery& delivery, Peer peer, const Fault& fault);
    void send(const QByteArray& bytes, Peer peer, const QString& fault, bool awaited);
    void withhold(Peer peer, const QString& fault);
    void forgetReplies();

    std::vector<Node> m_nodes;
    Line& m_line;
    Trace& m_trace;
    FrameReceiver m_receiver;
    BootLoader m_bootLoader;
    FaultList m_faults;
    BusStatistics m_statistics;
    bool m_hung = false;
    int m_repliesUnderWay = 0;
    Moment m_lastReplyWritten{};
    std::unique_ptr<QObject> m_delayedReplies; // context of their timers
};

} // namespace vanto::simulator
