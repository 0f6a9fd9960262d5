#include "bus.h"

#include "modbusregisters.h"
#include "serialctrl.h"

#include <QTimer>

#include <algorithm>

namespace vanto::simulator
{
namespace
{
using namespace std::chrono_literals;

constexpr Clock::duration receiverIdleLimit = 20ms;
} // namespace

Bus::Bus(std::vector<Node> nodes, Line& line, Trace& trace, const BootOptions& boot,
         QObject* parent)
    : QObject(parent),
      m_nodes(std::move(nodes)),
      m_line(line),
      m_trace(trace),
      m_receiver(receiverIdleLimit + line.wire().byteTime()),
      m_bootLoader(boot),
      m_delayedReplies(std::make_unique<QObject>())
{
    connect(&line.wire(), &Wire::received, this, &Bus::receive);
    connect(&line, &Line::unplugged, this, &Bus::forgetReplies);
    connect(&m_bootLoader, &BootLoader::received, this, &Bus::take);
}

Hand* Bus::find(quint8 id)
{
    const auto node =
        std::ranges::find_if(m_nodes, [id](const Node& n) { return n.hand.id == id; });
    return node == m_nodes.end() ? nullptr : &node->hand;
}

void Bus::receive(const QByteArray& bytes, Moment began)
{
    for (const char byte : bytes) {
        if (m_bootLoader.feed(byte, began))
            continue;
        const std::optional<ReceivedFrame> received = m_receiver.feed(byte, began);
        if (received)
            take(*received);
    }
}

void Bus::take(const ReceivedFrame& received)
{
    const bool isForBootLoader = received.peer.protocol == Protocol::Boot;
    if (isForBootLoader && (bootHand() == nullptr || !m_bootLoader.listens()))
        return;
    if (!isForBootLoader)
        m_bootLoader.closeWindow();
    note(received);
    if (received.checksumGood)
        std::visit([this](const auto& request) { answer(request); }, received.request);
}

void Bus::note(const ReceivedFrame& received)
{
    QStringList marks;
    if (m_repliesUnderWay > 0 || received.began < m_lastReplyWritten) {
        ++m_statistics.overlaps;
        marks.append(QStringLiteral("!overlap"));
    }
    if (!received.checksumGood)
        marks.append(QStringLiteral("!bad-checksum"));
    ++(received.checksumGood ? m_statistics.requests : m_statistics.bad);
    Peer peer = received.peer;
    if (peer.protocol == Protocol::Boot)
        peer.node = bootHand()->id;
    m_trace.received(peer, received.bytes, marks);
}

// Every hand that is addressed carries the request out; the one with the lowest id answers.
void Bus::answer(const Frame& request)
{
    const std::vector<Hand*> hands =
        addressed({Protocol::SerialCtrl, request.destination}, anyNode);
    if (hands.empty())
        return;
    const Peer peer{Protocol::SerialCtrl, hands.front()->id};
    if (m_hung) {
        withhold(peer, QStringLiteral("hang"));
        return;
    }

    Frame reply{request.source, peer.node, request.command, {}};
    const std::optional<Fault> fault = m_faults.take({peer, request.command, {}});
    if (fault && fault->kind->refuses) {
        deliver(fault->kind->deliver(reply, *fault), peer, *fault);
        return;
    }

    const Moment now = Clock::now();
    Answer first = serialCtrlAnswer(*hands.front(), request.command, request.payload, now);
    for (auto hand = hands.begin() + 1; hand != hands.end(); ++hand)
        serialCtrlAnswer(**hand, request.command, request.payload, now);
    if (first.subError != NoSubError) {
        reply.command |= errorBit;
        first.payload.clear();
        first.u8(first.subError);
    }
    reply.payload = first.payload;
    if (fault)
        deliver(fault->kind->deliver(reply, *fault), peer, *fault);
    else
        send(encode(reply), peer, {}, true);
}

void Bus::answer(const ModbusFrame& request)
{
    const Peer peer{Protocol::Modbus, request.node};
    const std::vector<Hand*> hands = addressed(peer, broadcastNode);
    if (hands.empty())
        return;
    if (m_hung) {
        withhold(peer, QStringLiteral("hang"));
        return;
    }

    const Moment now = Clock::now();
    if (request.node == broadcastNode) {
        for (Hand* const hand : hands)
            modbusAnswer(*hand, request, now);
        return;
    }
    Hand& hand = *hands.front();
    const std::optional<Fault> fault =
        m_faults.take({peer, request.function, firstRegister(request)});
    const bool refused = fault && fault->kind->refuses;
    const ModbusFrame reply =
        refused ? modbusRefusal(hand, request, fault->error) : modbusAnswer(hand, request, now);
    if (fault)
        deliver(fault->kind->deliverModbus(reply, *fault), peer, *fault);
    else
        send(encode(reply), peer, {}, true);
}

void Bus::answer(const BootRequest& request)
{
    Hand& hand = *bootHand();
    const Peer peer{Protocol::Boot, hand.id};
    if (m_hung) {
        withhold(peer, QStringLiteral("hang"));
        return;
    }
    const std::optional<Fault> fault = m_faults.take({peer, 0, {}, request.stage});
    const BootReply reply = m_bootLoader.verdict(hand, request);
    const Delivery delivery =
        fault ? fault->kind->deliverBoot(reply, *fault) : Delivery{reply.bytes};
    const bool prevented = fault && (fault->kind->refuses || delivery.bytes.isEmpty());
    m_bootLoader.carryOut(hand, request, !prevented);
    if (fault)
        deliver(delivery, peer, *fault);
    else
        send(reply.bytes, peer, {}, true);
}

// Requests to the boot loader name nobody: the hand with the lowest id takes them.
Hand* Bus::bootHand()
{
    Hand* lowest = nullptr;
    for (Node& node : m_nodes) {
        if (node.hand.powered && (lowest == nullptr || node.hand.id < lowest->id))
            lowest = &node.hand;
    }
    return lowest;
}

bool Bus::enterBootLoader()
{
    Hand* const hand = bootHand();
    if (hand != nullptr)
        m_bootLoader.enterWithoutApplication(*hand);
    return hand != nullptr;
}

void Bus::powerCycle(Hand& hand)
{
    hand.powerCycle(Clock::now());
    m_bootLoader.powerOn(hand);
}

std::vector<Hand*> Bus::addressed(Peer peer, quint8 allNodes)
{
    const Moment now = Clock::now();
    std::vector<Hand*> hands;
    for (Node& node : m_nodes) {
        const bool meant = peer.node == allNodes || peer.node == node.hand.id;
        if (meant && node.hand.hears(now) && node.protocols.testFlag(peer.protocol))
            hands.push_back(&node.hand);
    }
    std::ranges::stable_sort(hands, {}, &Hand::id);
    return hands;
}

void Bus::deliver(const Delivery& delivery, Peer peer, const Fault& fault)
{
    const QString name = QLatin1String(fault.kind->name);
    if (delivery.bytes.isEmpty()) {
        withhold(peer, name);
        return;
    }
    if (delivery.delay == 0ms) {
        send(delivery.bytes, peer, name, true);
        return;
    }
    QTimer::singleShot(delivery.delay, Qt::PreciseTimer, m_delayedReplies.get(),
                       [this, delivery, peer, name] { send(delivery.bytes, peer, name, false); });
}

// `awaited` replies make a request that comes before their end an overlap.
void Bus::send(const QByteArray& bytes, Peer peer, const QString& fault, bool awaited)
{
    const auto beforeLastByte = [this, bytes, peer, fault, awaited] {
        ++m_statistics.replies;
        m_trace.sent(peer, bytes, fault.isEmpty() ? QStringList() : QStringList(faultMark(fault)));
        if (!awaited)
            return;
        --m_repliesUnderWay;
        m_lastReplyWritten = Clock::now();
    };
    if (awaited)
        ++m_repliesUnderWay;
    const bool underWay = m_line.wire().send(bytes, beforeLastByte);
    if (awaited && !underWay)
        --m_repliesUnderWay;
}

void Bus::withhold(Peer peer, const QString& fault)
{
    ++m_statistics.dropped;
    m_trace.withheld(peer, fault);
}

void Bus::forgetReplies()
{
    m_delayedReplies = std::make_unique<QObject>();
    m_repliesUnderWay = 0;
    m_receiver.reset();
    m_bootLoader.lineLost();
}

} // namespace vanto::simulator
