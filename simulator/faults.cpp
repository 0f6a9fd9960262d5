#include "faults.h"

#include "numbers.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace simulator
{
namespace
{
constexpr qsizetype defaultNoise = 12;
constexpr qsizetype defaultExcess = 8;
constexpr qsizetype maxPayload = 255;
constexpr char flippedBits = 0x24;

Delivery garbled(const Frame& reply, const Fault&)
{
    QByteArray bytes = encode(reply);
    const qsizetype payloadEnd = bytes.size() - 2;
    const qsizetype at = reply.payload.isEmpty() ? bytes.size() - 1 : payloadEnd;
    bytes[at] = static_cast<char>(bytes[at] ^ flippedBits);
    return {bytes};
}

Delivery truncated(const Frame& reply, const Fault& fault)
{
    const QByteArray bytes = encode(reply);
    return {bytes.left(fault.bytes.value_or(bytes.size() / 2))};
}

void overLong(Frame& reply, const Fault& fault)
{
    const qsizetype excess = fault.bytes.value_or(defaultExcess);
    const qsizetype length = std::min(reply.payload.size() + excess, maxPayload);
    reply.payload = reply.payload.leftJustified(length, 0x5A);
}

void shortened(Frame& reply, const Fault& fault)
{
    const qsizetype oneLess = std::max<qsizetype>(reply.payload.size() - 1, 0);
    reply.payload.truncate(fault.bytes.value_or(oneLess));
}

void wrongFinger(Frame& reply, const Fault&)
{
    if (!reply.payload.isEmpty())
        reply.payload[0] = static_cast<char>(reply.payload[0] ^ 1);
}

void refused(Frame& reply, const Fault& fault)
{
    reply.command |= errorBit;
    reply.payload = QByteArray(1, static_cast<char>(fault.error));
}

// A reply that is a good frame with other content.
template<void (*Alter)(Frame&, const Fault&)>
Delivery altered(const Frame& reply, const Fault& fault)
{
    Frame other = reply;
    Alter(other, fault);
    return {encode(other)};
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

constexpr FaultKind kinds[] = {
    {"drop", false, [](const Frame&, const Fault&) { return Delivery{}; }},
    {"late", false,
     [](const Frame& r, const Fault& f) {
         return Delivery{encode(r), f.delay};
     }},
    {"garble", false, garbled},
    {"truncate", false, truncated},
    {"wrong-node", false, altered<[](Frame& r, const Fault&) { ++r.source; }>},
    {"wrong-command", false, altered<[](Frame& r, const Fault&) { r.command ^= 1U; }>},
    {"over-long", false, altered<overLong>},
    {"short", false, altered<shortened>},
    {"noise", false, [](const Frame& r, const Fault& f) { return Delivery{noise(f) + encode(r)}; }},
    {"garbage", false, [](const Frame&, const Fault& f) { return Delivery{noise(f)}; }},
    {"refuse", true, altered<refused>},
    {"refuse-bare", true, altered<[](Frame& r, const Fault&) { r.command |= errorBit; }>},
    {"wrong-finger", false, altered<wrongFinger>},
    {"wrong-host", false, altered<[](Frame& r, const Fault&) { ++r.destination; }>},
};

constexpr int maxCount = 1'000'000;
constexpr int maxDelay = 60'000; // ms
constexpr int maxBytes = 4096;

struct Parameter {
    const char* name;
    int max;
    void (*set)(Fault&, int);
};

constexpr Parameter parameters[] = {
    {"node", 0xFF, [](Fault& f, int v) { f.node = static_cast<quint8>(v); }},
    {"command", 0xFF, [](Fault& f, int v) { f.command = static_cast<quint8>(v); }},
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

QString setParameter(Fault& fault, const QString& word)
{
    const qsizetype equals = word.indexOf(QLatin1Char('='));
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
    m_armed.push_back(fault);
    return {};
}

std::optional<Fault> FaultList::take(quint8 node, quint8 command)
{
    for (auto armed = m_armed.begin(); armed != m_armed.end(); ++armed) {
        const bool matches =
            armed->node.value_or(node) == node && armed->command.value_or(command) == command;
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

} // namespace simulator
