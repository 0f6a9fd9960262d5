#include "bus.h"

#include "serialctrl.h"

#include <QTimer>

#include <algorithm>

namespace simulator
{
namespace
{
using namespace std::chrono_literals;

constexpr Clock::duration receiverIdleLimit = 20ms;
} // namespace

Bus::Bus(std::vector<Node> nodes, Line& line, Trace& trace, QObject* parent)
    : QObject(parent),
      m_nodes(std::move(nodes)),
      m_line(line),
      m_trace(trace),
      m_receiver(receiverIdleLimit + line.wire().byteTime()),
      m_delayedReplies(std::make_unique<QObject>())
{
    connect(&line.wire(), &Wire::received, this, &Bus::receive);
    connect(&line, &Line::unplugged, this, &Bus::forgetReplies);
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
        const std::optional<ReceivedFrame> received = m_receiver.feed(byte, began);
        if (!received)
            continue;
        note(*received);
        if (received->checksumGood)
            answer(received->frame);
    }
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
    m_trace.received(received.frame.destination, received.bytes, marks);
}

// Every hand that is addressed carries the request out; the one with the lowest id answers.
void Bus::answer(const Frame& request)
{
    const std::vector<Hand*> hands = addressed(request.destination);
    if (hands.empty())
        return;
    const quint8 node = hands.front()->id;
    if (m_hung) {
        withhold(node, QStringLiteral("hang"));
        return;
    }

    Frame reply{request.source, node, request.command, {}};
    const std::optional<Fault> fault = m_faults.take(node, request.command);
    if (fault && fault->kind->refuses) {
        deliver(reply, node, *fault);
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
        deliver(reply, node, *fault);
    else
        send(encode(reply), node, {}, true);
}

std::vector<Hand*> Bus::addressed(quint8 destination)
{
    std::vector<Hand*> hands;
    for (Node& node : m_nodes) {
        const bool meant = destination == anyNode || destination == node.hand.id;
        if (meant && node.hand.powered && node.protocol == Protocol::SerialCtrl)
            hands.push_back(&node.hand);
    }
    std::ranges::stable_sort(hands, {}, &Hand::id);
    return hands;
}

void Bus::deliver(const Frame& reply, quint8 node, const Fault& fault)
{
    const QString name = QLatin1String(fault.kind->name);
    const Delivery delivery = fault.kind->deliver(reply, fault);
    if (delivery.bytes.isEmpty()) {
        withhold(node, name);
        return;
    }
    if (delivery.delay == 0ms) {
        send(delivery.bytes, node, name, true);
        return;
    }
    QTimer::singleShot(delivery.delay, Qt::PreciseTimer, m_delayedReplies.get(),
                       [this, delivery, node, name] { send(delivery.bytes, node, name, false); });
}

// `awaited` replies make a request that comes before their end an overlap.
void Bus::send(const QByteArray& bytes, quint8 node, const QString& fault, bool awaited)
{
    const auto beforeLastByte = [this, bytes, node, fault, awaited] {
        ++m_statistics.replies;
        m_trace.sent(node, bytes, fault.isEmpty() ? QStringList() : QStringList(faultMark(fault)));
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

void Bus::withhold(quint8 node, const QString& fault)
{
    ++m_statistics.dropped;
    m_trace.withheld(node, fault);
}

void Bus::forgetReplies()
{
    m_delayedReplies = std::make_unique<QObject>();
    m_repliesUnderWay = 0;
    m_receiver.reset();
}

} // namespace simulator
