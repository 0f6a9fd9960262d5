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

constexpr Clock::duration ReceiverIdleLimit = 20ms;

Frame answer(Hand& hand, const Frame& request, TimePoint now)
{
    Frame frame{request.source, hand.id, request.command, {}};
    Response response = executeSerialCtrl(hand, request.command, request.payload, now);
    if (response.subError != NoSubError) {
        frame.command |= ErrorBit;
        response.payload.clear();
        response.u8(response.subError);
    }
    frame.payload = response.payload;
    return frame;
}
} // namespace

Bus::Bus(std::vector<Node> nodes, Line& line, Trace& trace, const BootOptions& boot,
         QObject* parent)
    : QObject(parent),
      m_nodes(std::move(nodes)),
      m_line(line),
      m_trace(trace),
      m_motionTrace(trace),
      m_receiver(ReceiverIdleLimit + line.wire().byteTime()),
      m_bootLoader(boot),
      m_delayedReplies(std::make_unique<QObject>())
{
    for (const Node& node : m_nodes)
        m_motionTrace.add(node.hand);
    connect(&line.wire(), &Wire::received, this, &Bus::receive);
    connect(&line, &Line::unplugged, this, &Bus::discardReplies);
    connect(&m_bootLoader, &BootLoader::received, this, &Bus::handleFrame);
}

Hand* Bus::findHand(std::uint8_t id)
{
    const auto node =
        std::ranges::find_if(m_nodes, [id](const Node& n) { return n.hand.id == id; });
    return node == m_nodes.end() ? nullptr : &node->hand;
}

void Bus::receive(const QByteArray& bytes, TimePoint startTime)
{
    for (const char byte : bytes) {
        if (m_bootLoader.feed(byte, startTime))
            continue;
        const std::optional<ReceivedFrame> received = m_receiver.feed(byte, startTime);
        if (received)
            handleFrame(*received);
    }
}

void Bus::handleFrame(const ReceivedFrame& received)
{
    const bool isForBootLoader = received.peer.protocol == Protocol::Boot;
    if (isForBootLoader && (bootLoaderHand() == nullptr || !m_bootLoader.isListening()))
        return;
    if (!isForBootLoader)
        m_bootLoader.closeWindow();
    recordFrame(received);
    if (received.checksumValid)
        std::visit([this](const auto& request) { handleRequest(request); }, received.request);
}

void Bus::recordFrame(const ReceivedFrame& received)
{
    m_motionTrace.update(Clock::now());
    QStringList marks;
    if (m_pendingReplies > 0 || received.startTime < m_lastReplyWritten) {
        ++m_statistics.overlaps;
        marks.append(QStringLiteral("!overlap"));
    }
    if (!received.checksumValid)
        marks.append(QStringLiteral("!bad-checksum"));
    ++(received.checksumValid ? m_statistics.requests : m_statistics.bad);
    Peer peer = received.peer;
    if (peer.protocol == Protocol::Boot)
        peer.node = bootLoaderHand()->id;
    m_trace.writeRequest(peer, received.bytes, marks);
}

/// Every addressed hand executes the request; the one with the lowest id answers, unless the
/// replies collide.
void Bus::handleRequest(const Frame& request)
{
    const std::vector<Hand*> hands =
        addressedHands({Protocol::SerialCtrl, request.destination}, AnyNode);
    if (hands.empty())
        return;
    const Peer peer{Protocol::SerialCtrl, hands.front()->id};
    if (m_hung) {
        withhold(peer, QStringLiteral("hang"));
        return;
    }

    const std::optional<Fault> fault = m_faults.take({peer, request.command, {}});
    if (fault && fault->kind->refuses) {
        const Frame refused{request.source, peer.node, request.command, {}};
        deliver(fault->kind->deliver(refused, *fault), peer, *fault);
        return;
    }

    const TimePoint now = Clock::now();
    Hand copy = *hands.front();
    const bool ignores = fault && fault->kind->ignores;
    const Frame first = answer(ignores ? copy : *hands.front(), request, now);
    QList<QByteArray> replies{encode(first)};
    for (auto hand = hands.begin() + 1; hand != hands.end(); ++hand)
        replies.append(encode(answer(**hand, request, now)));
    m_motionTrace.update(now);
    if (fault)
        deliver(fault->kind->deliver(first, *fault), peer, *fault);
    else if (m_colliding && replies.size() > 1)
        send(mixed(replies), peer, {QStringLiteral("!collision")}, true);
    else
        send(replies.front(), peer, {}, true);
}

void Bus::handleRequest(const ModbusFrame& request)
{
    const Peer peer{Protocol::Modbus, request.node};
    const std::vector<Hand*> hands = addressedHands(peer, BroadcastNode);
    if (hands.empty())
        return;
    if (m_hung) {
        withhold(peer, QStringLiteral("hang"));
        return;
    }

    const TimePoint now = Clock::now();
    if (request.node == BroadcastNode) {
        for (Hand* const hand : hands)
            executeModbus(*hand, request, now);
        m_motionTrace.update(now);
        return;
    }
    Hand& hand = *hands.front();
    const std::optional<Fault> fault =
        m_faults.take({peer, request.function, firstRegister(request)});
    const bool refused = fault && fault->kind->refuses;
    Hand copy = hand;
    Hand& executing = fault && fault->kind->ignores ? copy : hand;
    const ModbusFrame reply = refused ? refuseModbus(hand, request, fault->error)
                                      : executeModbus(executing, request, now);
    m_motionTrace.update(now);
    if (fault)
        deliver(fault->kind->deliverModbus(reply, *fault), peer, *fault);
    else
        send(encode(reply), peer, {}, true);
}

void Bus::handleRequest(const BootRequest& request)
{
    Hand& hand = *bootLoaderHand();
    const Peer peer{Protocol::Boot, hand.id};
    if (m_hung) {
        withhold(peer, QStringLiteral("hang"));
        return;
    }
    const std::optional<Fault> fault = m_faults.take({peer, 0, {}, request.stage});
    const BootReply reply = m_bootLoader.replyTo(hand, request);
    const Delivery delivery =
        fault ? fault->kind->deliverBoot(reply, *fault) : Delivery{reply.bytes};
    const bool prevented = fault && (fault->kind->refuses || delivery.bytes.isEmpty());
    m_bootLoader.execute(hand, request, !prevented);
    if (fault)
        deliver(delivery, peer, *fault);
    else
        send(reply.bytes, peer, {}, true);
}

/// Requests to the boot loader carry no node id: the hand with the lowest id receives them.
Hand* Bus::bootLoaderHand()
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
    Hand* const hand = bootLoaderHand();
    if (hand != nullptr)
        m_bootLoader.enterWithoutApplication(*hand);
    return hand != nullptr;
}

void Bus::powerCycle(Hand& hand)
{
    hand.powerCycle(Clock::now());
    m_bootLoader.powerOn(hand);
}

std::vector<Hand*> Bus::addressedHands(Peer peer, std::uint8_t allNodes)
{
    const TimePoint now = Clock::now();
    std::vector<Hand*> hands;
    for (Node& node : m_nodes) {
        const bool meant = peer.node == allNodes || peer.node == node.hand.id;
        if (meant && node.hand.isListening(now) && node.protocols.testFlag(peer.protocol))
            hands.push_back(&node.hand);
    }
    std::ranges::stable_sort(hands, {}, &Hand::id);
    return hands;
}

void Bus::deliver(const Delivery& delivery, Peer peer, const Fault& fault)
{
    const QString name = QLatin1String(fault.kind->name);
    const QStringList marks{faultMark(name)};
    if (delivery.bytes.isEmpty()) {
        withhold(peer, name);
        return;
    }
    if (delivery.delay == 0ms) {
        send(delivery.bytes, peer, marks, true);
        return;
    }
    QTimer::singleShot(delivery.delay, Qt::PreciseTimer, m_delayedReplies.get(),
                       [this, delivery, peer, marks] { send(delivery.bytes, peer, marks, false); });
}

/// A request that arrives before the end of an `awaited` reply counts as an overlap.
void Bus::send(const QByteArray& bytes, Peer peer, const QStringList& marks, bool awaited)
{
    const auto beforeLastByte = [this, bytes, peer, marks, awaited] {
        ++m_statistics.replies;
        m_motionTrace.update(Clock::now());
        m_trace.writeReply(peer, bytes, marks);
        if (!awaited)
            return;
        --m_pendingReplies;
        m_lastReplyWritten = Clock::now();
    };
    if (awaited)
        ++m_pendingReplies;
    const bool underWay = m_line.wire().send(bytes, beforeLastByte);
    if (awaited && !underWay)
        --m_pendingReplies;
}

void Bus::withhold(Peer peer, const QString& fault)
{
    ++m_statistics.dropped;
    m_trace.writeWithheldReply(peer, fault);
}

void Bus::discardReplies()
{
    m_delayedReplies = std::make_unique<QObject>();
    m_pendingReplies = 0;
    m_receiver.reset();
    m_bootLoader.handleDisconnect();
}

} // namespace vanto::simulator
