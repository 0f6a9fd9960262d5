#include "faults.h"

#include "numbers.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace vanto::simulator
{
namespace
{
constexpr qsizetype defaultNoise = 12;
constexpr qsizetype defaultExcess = 8;
constexpr qsizetype maxPayload = 255;
constexpr qsizetype registerSize = 2;
constexpr char flippedBits = 0x24;

void fail(Frame& reply, const Fault& fault)
{
    reply.command |= errorBit;
    reply.payload = QByteArray(1, static_cast<char>(fault.error));
}

// A Modbus hand has refused by itself, so that its error register tells the same.
void fail(ModbusFrame&, const Fault&) {}

void fail(BootReply& reply, const Fault& fault)
{
    reply.bytes = QByteArray(1, static_cast<char>(fault.error));
}

void failBare(Frame& reply, const Fault&)
{
    reply.command |= errorBit;
}

void failBare(ModbusFrame& reply, const Fault&)
{
    reply.data.clear();
}

void renameNode(Frame& reply, const Fault&)
{
    ++reply.source;
}

void renameNode(ModbusFrame& reply, const Fault&)
{
    ++reply.node;
}

void renameCommand(Frame& reply, const Fault&)
{
    reply.command ^= 1U;
}

void renameCommand(ModbusFrame& reply, const Fault&)
{
    reply.function ^= 1U;
}

void renameHost(Frame& reply, const Fault&)
{
    ++reply.destination;
}

QByteArray& payloadOf(Frame& reply)
{
    return reply.payload;
}

QByteArray& payloadOf(ModbusFrame& reply)
{
    return reply.data;
}

// A frame that tells its own length stays good; of the Modbus replies only that to a read does.
void settleLength(Frame&) {}

void settleLength(ModbusFrame& reply)
{
    if (reply.function == ReadHoldingRegisters && !reply.data.isEmpty())
        reply.data[0] = static_cast<char>(reply.data.size() - 1);
}

qsizetype unitOf(const Frame&)
{
    return 1;
}

qsizetype unitOf(const ModbusFrame& reply)
{
    return reply.function == ReadHoldingRegisters ? registerSize : 1;
}

template<class Reply>
void overLong(Reply& reply, const Fault& fault)
{
    QByteArray& payload = payloadOf(reply);
    const qsizetype excess = fault.bytes.value_or(defaultExcess);
    payload = payload.leftJustified(std::min(payload.size() + excess, maxPayload), 0x5A);
    settleLength(reply);
}

template<class Reply>
void shortened(Reply& reply, const Fault& fault)
{
    QByteArray& payload = payloadOf(reply);
    payload.truncate(fault.bytes.value_or(std::max<qsizetype>(payload.size() - unitOf(reply), 0)));
    settleLength(reply);
}

template<class Reply>
void wrongFinger(Reply& reply, const Fault&)
{
    QByteArray& payload = payloadOf(reply);
    if (!payload.isEmpty())
        payload[0] = static_cast<char>(payload[0] ^ 1);
}

// A reply that is a good frame with other content.
template<class Reply, void (*Alter)(Reply&, const Fault&)>
Delivery altered(const Reply& reply, const Fault& fault)
{
    Reply other = reply;
    Alter(other, fault);
    return {encode(other)};
}

Delivery garbled(const Frame& reply, const Fault&)
{
    QByteArray bytes = encode(reply);
    const qsizetype payloadEnd = bytes.size() - 2;
    const qsizetype at = reply.payload.isEmpty() ? bytes.size() - 1 : payloadEnd;
    bytes[at] = static_cast<char>(bytes[at] ^ flippedBits);
    return {bytes};
}

Delivery garbled(const ModbusFrame& reply, const Fault&)
{
    QByteArray bytes = encode(reply);
    bytes.back() = static_cast<char>(bytes.back() ^ flippedBits);
    return {bytes};
}

template<class Reply>
Delivery dropped(const Reply&, const Fault&)
{
    return {};
}

template<class Reply>
Delivery delayed(const Reply& reply, const Fault& fault)
{
    return {encode(reply), fault.delay};
}

template<class Reply>
Delivery truncated(const Reply& reply, const Fault& fault)
{
    const QByteArray bytes = encode(reply);
    return {bytes.left(fault.bytes.value_or(bytes.size() / 2))};
}

// Looks random and is the same every time; holds a false start of a frame (55), but no 55 AA and
// no 55 at the end, so that a good frame after it can be found.
QByteArray noise(const Fault& fault)
{
    constexpr quint32 multiplier = 1664525U;
    constexpr quint32 increment = 1013904223U;
    constexpr char falseStart = 0x55;
    quint32 state = 1;
    QByteArray bytes(fault.bytes.value_or(defaultNoise), 0);
    for (char& byte : bytes) {
        state = state * multiplier + increment;
        const auto next = static_cast<char>(state >> 24U);
        byte = next == falseStart ? static_cast<char>(0x3C) : next;
    }
    if (bytes.size() >= 2) {
        const qsizetype middle = bytes.size() / 2 - 1;
        bytes[middle] = falseStart;
        bytes[middle + 1] = 0x13;
    }
    return bytes;
}

template<class Reply>
Delivery afterNoise(const Reply& reply, const Fault& fault)
{
    return {noise(fault) + encode(reply)};
}

// The first byte comes twice: 55 55 AA is no answer to a probe.
Delivery stuttering(const BootReply& reply, const Fault&)
{
    return {reply.bytes.first(1) + reply.bytes};
}

template<class Reply>
Delivery onlyNoise(const Reply&, const Fault& fault)
{
    return {noise(fault)};
}

#define BOTH(function) function<Frame>, function<ModbusFrame>
#define BOTH_ALTERED(alter) altered<Frame, alter>, altered<ModbusFrame, alter>

constexpr FaultKind kinds[] = {
    {"drop", false, BOTH(dropped), dropped<BootReply>},
    {"late", false, BOTH(delayed), delayed<BootReply>},
    {"garble", false, garbled, garbled},
    {"truncate", false, BOTH(truncated)},
    {"wrong-node", false, BOTH_ALTERED(renameNode)},
    {"wrong-command", false, BOTH_ALTERED(renameCommand)},
    {"over-long", false, BOTH_ALTERED(overLong)},
    {"short", false, BOTH_ALTERED(shortened)},
    {"noise", false, BOTH(afterNoise), afterNoise<BootReply>},
    {"garbage", false, BOTH(onlyNoise), onlyNoise<BootReply>},
    {"refuse", true, BOTH_ALTERED(fail), altered<BootReply, fail>},
    {"refuse-bare", true, BOTH_ALTERED(failBare)},
    {"wrong-finger", false, BOTH_ALTERED(wrongFinger)},
    {"wrong-host", false, altered<Frame, renameHost>, nullptr},
    {"stutter", false, nullptr, nullptr, stuttering},
};

constexpr int maxCount = 1'000'000;
constexpr int maxDelay = 60'000; // ms
constexpr int maxBytes = 4096;

constexpr const char* stageNames[] = {"probe", "hardware", "record"};

struct Parameter {
    const char* name;
    int max;
    void (*set)(Fault&, int);
};

constexpr Parameter parameters[] = {
    {"node", 0xFF, [](Fault& f, int v) { f.node = static_cast<quint8>(v); }},
    {"command", 0xFF, [](Fault& f, int v) { f.command = static_cast<quint8>(v); }},
    {"register", 0xFFFF, [](Fault& f, int v) { f.address = static_cast<quint16>(v); }},
    {"skip", maxCount, [](Fault& f, int v) { f.skip = v; }},
    {"count", maxCount, [](Fault& f, int v) { f.count = v; }},
    {"ms", maxDelay, [](Fault& f, int v) { f.delay = std::chrono::milliseconds(v); }},
    {"error", 0xFF, [](Fault& f, int v) { f.error = static_cast<quint8>(v); }},
    {"bytes", maxBytes, [](Fault& f, int v) { f.bytes = v; }},
};

template<typename Table>
auto findByName(const Table& table, const QString& name)
{
    return std::ranges::find_if(
        table, [&name](const auto& entry) { return name == QLatin1String(entry.name); });
}

QString setStage(Fault& fault, const QString& name)
{
    const auto* const stage =
        std::ranges::find(stageNames, name, [](const char* known) { return QLatin1String(known); });
    if (stage == std::end(stageNames))
        return QStringLiteral("'%1' is not probe, hardware or record").arg(name);
    fault.stage = static_cast<BootStage>(std::distance(std::begin(stageNames), stage));
    return {};
}

QString setParameter(Fault& fault, const QString& word)
{
    const qsizetype equals = word.indexOf(QLatin1Char('='));
    if (word.left(equals) == QLatin1String("stage"))
        return setStage(fault, word.mid(equals + 1));
    const auto* const parameter = findByName(parameters, word.left(equals));
    if (equals < 0 || parameter == std::end(parameters))
        return QStringLiteral("unknown parameter '%1'").arg(word);
    const std::optional<qint64> value = parseInteger(word.mid(equals + 1), 0, parameter->max);
    if (!value)
        return QStringLiteral("'%1' needs a number from 0 to %2").arg(word).arg(parameter->max);
    parameter->set(fault, static_cast<int>(*value));
    return {};
}
} // namespace

QString FaultList::arm(const QStringList& words)
{
    if (words.isEmpty())
        return QStringLiteral("a fault needs a name");
    Fault fault;
    fault.kind = findByName(kinds, words.first());
    if (fault.kind == std::end(kinds))
        return QStringLiteral("unknown fault '%1'").arg(words.first());
    for (const QString& word : words.sliced(1)) {
        QString error = setParameter(fault, word);
        if (!error.isEmpty())
            return error;
    }
    const bool exists =
        fault.stage ? fault.kind->deliverBoot != nullptr : fault.kind->deliver != nullptr;
    if (!exists) {
        return QStringLiteral("there is no fault '%1' of the boot loader%2")
            .arg(words.first(), fault.stage ? QString() : QStringLiteral(" without a stage"));
    }
    m_armed.push_back(fault);
    return {};
}

std::optional<Fault> FaultList::take(const FaultTarget& target)
{
    for (auto armed = m_armed.begin(); armed != m_armed.end(); ++armed) {
        const bool exists =
            target.peer.protocol != Protocol::Modbus || armed->kind->deliverModbus != nullptr;
        const bool matches = exists && armed->stage == target.stage &&
                             armed->node.value_or(target.peer.node) == target.peer.node &&
                             armed->command.value_or(target.command) == target.command &&
                             (!armed->address || armed->address == target.address);
        if (!matches)
            continue;
        if (armed->skip > 0) {
            --armed->skip;
            continue;
        }
        const Fault hit = *armed;
        const bool usedUp = armed->count > 0 && --armed->count == 0;
        if (usedUp)
            m_armed.erase(armed);
        return hit;
    }
    return std::nullopt;
}

QString faultHelp()
{
    QStringList names;
    for (const FaultKind& kind : kinds)
        names.append(QLatin1String(kind.name));
    return names.join(QLatin1Char(' '));
}

} // namespace vanto::simulator
