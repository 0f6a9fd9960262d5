#include "faults.h"

#include "numbers.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace vanto::simulator
{
namespace
{
constexpr qsizetype DefaultNoise = 12;
constexpr qsizetype DefaultExcess = 8;
constexpr qsizetype MaxPayload = 255;
constexpr qsizetype RegisterSize = 2;
constexpr char FlippedBits = 0x24;

void setError(Frame& reply, const Fault& fault)
{
    reply.command |= ErrorBit;
    reply.payload = QByteArray(1, static_cast<char>(fault.error));
}

/// A Modbus hand has already refused the request itself, which also sets its error register.
void setError(ModbusFrame&, const Fault&) {}

void setError(BootReply& reply, const Fault& fault)
{
    reply.bytes = QByteArray(1, static_cast<char>(fault.error));
}

void setBareError(Frame& reply, const Fault&)
{
    reply.command |= ErrorBit;
}

void setBareError(ModbusFrame& reply, const Fault&)
{
    reply.data.clear();
}

void changeNode(Frame& reply, const Fault&)
{
    ++reply.source;
}

void changeNode(ModbusFrame& reply, const Fault&)
{
    ++reply.node;
}

void changeCommand(Frame& reply, const Fault&)
{
    reply.command ^= 1U;
}

void changeCommand(ModbusFrame& reply, const Fault&)
{
    reply.function ^= 1U;
}

void changeHost(Frame& reply, const Fault&)
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

/// Keeps a frame valid whose length is in its data. For Modbus this is only the reply to a read.
void updateByteCount(Frame&) {}

void updateByteCount(ModbusFrame& reply)
{
    if (reply.function == ReadHoldingRegisters && !reply.data.isEmpty())
        reply.data[0] = static_cast<char>(reply.data.size() - 1);
}

qsizetype unitSize(const Frame&)
{
    return 1;
}

qsizetype unitSize(const ModbusFrame& reply)
{
    return reply.function == ReadHoldingRegisters ? RegisterSize : 1;
}

template<class Reply>
void lengthen(Reply& reply, const Fault& fault)
{
    QByteArray& payload = payloadOf(reply);
    const qsizetype excess = fault.bytes.value_or(DefaultExcess);
    payload = payload.leftJustified(std::min(payload.size() + excess, MaxPayload), 0x5A);
    updateByteCount(reply);
}

template<class Reply>
void shorten(Reply& reply, const Fault& fault)
{
    QByteArray& payload = payloadOf(reply);
    payload.truncate(
        fault.bytes.value_or(std::max<qsizetype>(payload.size() - unitSize(reply), 0)));
    updateByteCount(reply);
}

template<class Reply>
void changeFinger(Reply& reply, const Fault&)
{
    QByteArray& payload = payloadOf(reply);
    if (!payload.isEmpty())
        payload[0] = static_cast<char>(payload[0] ^ 1);
}

/// A valid frame with altered content.
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
    bytes[at] = static_cast<char>(bytes[at] ^ FlippedBits);
    return {bytes};
}

Delivery garbled(const ModbusFrame& reply, const Fault&)
{
    QByteArray bytes = encode(reply);
    bytes.back() = static_cast<char>(bytes.back() ^ FlippedBits);
    return {bytes};
}

template<class Reply>
Delivery dropped(const Reply&, const Fault&)
{
    return {};
}

template<class Reply>
Delivery unaltered(const Reply& reply, const Fault&)
{
    return {encode(reply)};
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

/// Reproducible noise. It contains a false frame start (55), but neither 55 AA nor a final 55, so
/// that a receiver can find a valid frame after it.
QByteArray noise(const Fault& fault)
{
    constexpr std::uint32_t multiplier = 1664525U;
    constexpr std::uint32_t increment = 1013904223U;
    constexpr char falseStart = 0x55;
    std::uint32_t state = 1;
    QByteArray bytes(fault.bytes.value_or(DefaultNoise), 0);
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

/// Repeats the first byte: 55 55 AA is not an answer to a probe.
Delivery stuttering(const BootReply& reply, const Fault&)
{
    return {reply.bytes.first(1) + reply.bytes};
}

template<class Reply>
Delivery onlyNoise(const Reply&, const Fault& fault)
{
    return {noise(fault)};
}

// NOLINTNEXTLINE(bugprone-macro-parentheses): the name of a template cannot be in parentheses
#define BOTH(function) function<Frame>, function<ModbusFrame>
#define BOTH_ALTERED(alter) altered<Frame, alter>, altered<ModbusFrame, alter>

constexpr FaultKind Kinds[] = {
    {"drop", false, BOTH(dropped), dropped<BootReply>},
    {"late", false, BOTH(delayed), delayed<BootReply>},
    {"garble", false, garbled, garbled},
    {"truncate", false, BOTH(truncated)},
    {"wrong-node", false, BOTH_ALTERED(changeNode)},
    {"wrong-command", false, BOTH_ALTERED(changeCommand)},
    {"over-long", false, BOTH_ALTERED(lengthen)},
    {"short", false, BOTH_ALTERED(shorten)},
    {"noise", false, BOTH(afterNoise), afterNoise<BootReply>},
    {"garbage", false, BOTH(onlyNoise), onlyNoise<BootReply>},
    {"refuse", true, BOTH_ALTERED(setError), altered<BootReply, setError>},
    {"refuse-bare", true, BOTH_ALTERED(setBareError)},
    {"ignore", false, BOTH(unaltered), nullptr, true},
    {"wrong-finger", false, BOTH_ALTERED(changeFinger)},
    {"wrong-host", false, altered<Frame, changeHost>, nullptr},
    {"stutter", false, nullptr, nullptr, stuttering},
};

constexpr int MaxCount = 1'000'000;
constexpr int MaxDelayMs = 60'000;
constexpr int MaxBytes = 4096;

constexpr const char* StageNames[] = {"probe", "hardware", "record"};

struct Parameter {
    const char* name;
    int max;
    void (*set)(Fault&, int);
};

constexpr Parameter Parameters[] = {
    {"node", 0xFF, [](Fault& f, int v) { f.node = static_cast<std::uint8_t>(v); }},
    {"command", 0xFF, [](Fault& f, int v) { f.command = static_cast<std::uint8_t>(v); }},
    {"register", 0xFFFF, [](Fault& f, int v) { f.address = static_cast<std::uint16_t>(v); }},
    {"skip", MaxCount, [](Fault& f, int v) { f.skip = v; }},
    {"count", MaxCount, [](Fault& f, int v) { f.count = v; }},
    {"ms", MaxDelayMs, [](Fault& f, int v) { f.delay = std::chrono::milliseconds(v); }},
    {"error", 0xFF, [](Fault& f, int v) { f.error = static_cast<std::uint8_t>(v); }},
    {"bytes", MaxBytes, [](Fault& f, int v) { f.bytes = v; }},
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
        std::ranges::find(StageNames, name, [](const char* known) { return QLatin1String(known); });
    if (stage == std::end(StageNames))
        return QStringLiteral("'%1' is not probe, hardware or record").arg(name);
    fault.stage = static_cast<BootStage>(std::distance(std::begin(StageNames), stage));
    return {};
}

QString setParameter(Fault& fault, const QString& word)
{
    const qsizetype equals = word.indexOf(QLatin1Char('='));
    if (word.left(equals) == QLatin1String("stage"))
        return setStage(fault, word.mid(equals + 1));
    const auto* const parameter = findByName(Parameters, word.left(equals));
    if (equals < 0 || parameter == std::end(Parameters))
        return QStringLiteral("unknown parameter '%1'").arg(word);
    const std::optional<std::int64_t> value = parseInteger(word.mid(equals + 1), 0, parameter->max);
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
    fault.kind = findByName(Kinds, words.first());
    if (fault.kind == std::end(Kinds))
        return QStringLiteral("unknown fault '%1'").arg(words.first());
    for (const QString& word : words.sliced(1)) {
        QString error = setParameter(fault, word);
        if (!error.isEmpty())
            return error;
    }
    const bool isSupported =
        fault.stage ? fault.kind->deliverBoot != nullptr : fault.kind->deliver != nullptr;
    if (!isSupported) {
        return QStringLiteral("there is no fault '%1' of the boot loader%2")
            .arg(words.first(), fault.stage ? QString() : QStringLiteral(" without a stage"));
    }
    m_armed.push_back(fault);
    return {};
}

std::optional<Fault> FaultList::take(const FaultTarget& target)
{
    for (auto armed = m_armed.begin(); armed != m_armed.end(); ++armed) {
        const bool isSupported =
            target.peer.protocol != Protocol::Modbus || armed->kind->deliverModbus != nullptr;
        const bool matches = isSupported && armed->stage == target.stage &&
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
    for (const FaultKind& kind : Kinds)
        names.append(QLatin1String(kind.name));
    return names.join(QLatin1Char(' '));
}

} // namespace vanto::simulator
