#include "watch.h"

#include "handprocess.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace vanto
{

namespace
{
constexpr int BeatMs = 20;
constexpr qint64 GapLimitMs = 500;    ///< for which the event loop may stand still
constexpr qint64 CertainGapMs = 5000; ///< no machine is so busy

qint64 processorMs()
{
    return qint64{std::clock()} * 1000 / CLOCKS_PER_SEC;
}

QStringList* s_messages = nullptr;

/// What other platforms do not say; the offscreen one says it of every window.
bool isExpected(const QString& text)
{
    return text.startsWith(QLatin1String("This plugin does not support"));
}

void takeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtDebugMsg || type == QtInfoMsg || isExpected(text))
        return;
    std::fprintf(stderr, "%s: %s\n", context.category, qPrintable(text));
    if (s_messages)
        s_messages->append(QStringLiteral("Qt says: ") + text);
}

/// Whether a request makes a finger move.
bool moves(const TracedFrame& request)
{
    const auto byte = [&](int at) {
        return at < request.bytes.size() ? static_cast<unsigned char>(request.bytes[at]) : 0;
    };
    if (request.protocol == QLatin1String("serialctrl"))
        return (byte(4) >= 0x4B && byte(4) <= 0x4D) || (byte(4) >= 0x4F && byte(4) <= 0x51);
    if (request.protocol != QLatin1String("modbus") || (byte(1) != 6 && byte(1) != 16))
        return false;
    const int start = byte(2) * 256 + byte(3);
    return (start >= 1135 && start < 1145) || (start >= 1155 && start < 1165);
}
} // namespace

Watch::Watch(HandProcess& hand, bool slow, bool busy)
    : m_hand(hand), m_limitMs(slow ? 2 * GapLimitMs : GapLimitMs), m_busyMachine(busy)
{
    s_messages = &m_findings;
    qInstallMessageHandler(takeMessage);
    m_heart.setTimerType(Qt::PreciseTimer);
    connect(&m_heart, &QTimer::timeout, this, [this] { beat(); });
    m_sinceBeat.start();
    m_heart.start(BeatMs);
}

Watch::~Watch()
{
    s_messages = nullptr;
}

int Watch::motions(const HandProcess& hand)
{
    const auto requests = hand.requests();
    return static_cast<int>(std::count_if(requests.begin(), requests.end(), moves));
}

void Watch::beginStillness()
{
    lookAtWire();
    m_still = true;
}

void Watch::endStillness()
{
    lookAtWire();
    m_still = false;
}

void Watch::lookAtWire()
{
    const auto frames = m_hand.trace();
    m_hand.forgetTrace();
    for (const TracedFrame& frame : frames) {
        if (frame.marks.contains(QLatin1String("overlap")))
            find(QStringLiteral("two exchanges at a time: ") +
                 QString::fromLatin1(frame.bytes.toHex(' ')));
        if (frame.direction != QLatin1String("rx"))
            continue;
        ++m_exchanges;
        if (m_still && moves(frame))
            find(QStringLiteral("nobody asked for this motion: ") +
                 QString::fromLatin1(frame.bytes.toHex(' ')));
    }
    m_workedAtBeat = processorMs();
    m_sinceBeat.restart(); // reading a long trace is the watch's own time
}

void Watch::beat()
{
    const qint64 gap = m_sinceBeat.restart();
    const qint64 worked = processorMs() - m_workedAtBeat;
    m_workedAtBeat += worked;
    m_longestGapMs = std::max(m_longestGapMs, gap);
    if (gap > m_limitMs && (!m_busyMachine || worked > m_limitMs || gap > CertainGapMs))
        find(QStringLiteral("the event loop stood still for %1 ms").arg(gap));
}

void Watch::find(const QString& what)
{
    std::fprintf(stderr, "FINDING: %s\n", qPrintable(what));
    m_findings.append(what);
}

} // namespace vanto
