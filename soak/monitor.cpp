#include "monitor.h"

#include "handprocess.h"

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace vanto
{

namespace
{
constexpr int LoopCheckMs = 20;
constexpr qint64 GapLimitMs = 500; ///< allowed blocking time of the event loop
constexpr qint64 MaxGapMs = 5000;  ///< not explained by a busy machine

qint64 processorMs()
{
    return qint64{std::clock()} * 1000 / CLOCKS_PER_SEC;
}

QStringList* s_messages = nullptr;

/// The offscreen platform prints this message for every window.
bool isExpected(const QString& text)
{
    return text.startsWith(QLatin1String("This plugin does not support"));
}

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtDebugMsg || type == QtInfoMsg || isExpected(text))
        return;
    std::fprintf(stderr, "%s: %s\n", context.category, qPrintable(text));
    if (s_messages)
        s_messages->append(QStringLiteral("Qt message: ") + text);
}

/// Whether a request moves a finger.
bool isMotion(const TracedFrame& request)
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

Monitor::Monitor(HandProcess& hand, bool slow, bool busy)
    : m_hand(hand), m_limitMs(slow ? 2 * GapLimitMs : GapLimitMs), m_busyMachine(busy)
{
    s_messages = &m_findings;
    qInstallMessageHandler(handleMessage);
    m_loopTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_loopTimer, &QTimer::timeout, this, [this] { checkEventLoop(); });
    m_sinceCheck.start();
    m_loopTimer.start(LoopCheckMs);
}

Monitor::~Monitor()
{
    s_messages = nullptr;
}

int Monitor::countMotions(const HandProcess& hand)
{
    const auto requests = hand.requests();
    return static_cast<int>(std::count_if(requests.begin(), requests.end(), isMotion));
}

void Monitor::beginQuietPhase()
{
    checkTrace();
    m_quiet = true;
}

void Monitor::endQuietPhase()
{
    checkTrace();
    m_quiet = false;
}

void Monitor::checkTrace()
{
    const auto frames = m_hand.trace();
    m_hand.clearTrace();
    for (const TracedFrame& frame : frames) {
        if (frame.marks.contains(QLatin1String("overlap")))
            addFinding(QStringLiteral("two exchanges at the same time: ") +
                       QString::fromLatin1(frame.bytes.toHex(' ')));
        if (frame.direction != QLatin1String("rx"))
            continue;
        ++m_exchanges;
        if (m_quiet && isMotion(frame))
            addFinding(QStringLiteral("unexpected motion: ") +
                       QString::fromLatin1(frame.bytes.toHex(' ')));
    }
    m_processorMs = processorMs();
    m_sinceCheck.restart(); // excludes the time for reading a long trace
}

void Monitor::checkEventLoop()
{
    const qint64 gap = m_sinceCheck.restart();
    const qint64 used = processorMs() - m_processorMs;
    m_processorMs += used;
    m_longestGapMs = std::max(m_longestGapMs, gap);
    if (gap > m_limitMs && (!m_busyMachine || used > m_limitMs || gap > MaxGapMs))
        addFinding(
            QStringLiteral("the event loop was blocked for %1 ms, with %2 ms of processor time")
                .arg(gap)
                .arg(used));
}

void Monitor::addFinding(const QString& finding)
{
    std::fprintf(stderr, "FINDING: %s\n", qPrintable(finding));
    m_findings.append(finding);
}

} // namespace vanto
