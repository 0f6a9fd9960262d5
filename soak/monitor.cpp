#include "monitor.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace vanto
{

namespace
{
constexpr int LoopCheckMs = 20;
constexpr qint64 GapLimitMs = 500;    ///< allowed blocking time of the event loop
constexpr double FarFromPlace = 1024; ///< ticks; a halt reads a moving finger before it writes
constexpr qint64 MaxGapMs = 5000;     ///< not explained by a busy machine

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
    return static_cast<int>(std::count_if(requests.begin(), requests.end(), HaltFrames::isMotion));
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
    m_marks += m_hand.motionMarks();
    m_hand.clearTrace();
    for (const TracedFrame& frame : frames) {
        if (frame.marks.contains(QLatin1String("overlap")))
            addFinding(QStringLiteral("two exchanges at the same time: ") +
                       QString::fromLatin1(frame.bytes.toHex(' ')));
        if (frame.direction != QLatin1String("rx"))
            continue;
        ++m_exchanges;
        const bool halts = m_haltFrames.accept(frame) && m_haltAllowed && keepsPlaces(frame);
        m_haltWrites += m_quiet && halts && HaltFrames::isMotion(frame);
        if (m_quiet && HaltFrames::isMotion(frame) && !halts)
            addFinding(QStringLiteral("unexpected motion: ") +
                       QString::fromLatin1(frame.bytes.toHex(' ')));
    }
    keepLastMarks();
    m_processorMs = processorMs();
    m_sinceCheck.restart(); // excludes the time for reading a long trace
}

/// Whether the request writes to every finger where it is at that time.
bool Monitor::keepsPlaces(const TracedFrame& request) const
{
    const auto places = HandProcess::positionsAt(m_marks, request.node, request.ms);
    const auto goals = HaltFrames::goals(request);
    for (qsizetype finger = 0; finger < std::min(places.size(), goals.size()); ++finger)
        if (std::abs(places[finger] - goals[finger]) > FarFromPlace)
            return false;
    return true;
}

/// The next trace begins without them.
void Monitor::keepLastMarks()
{
    QList<MotionMark> last;
    for (auto mark = m_marks.crbegin(); mark != m_marks.crend(); ++mark) {
        const auto isSameHand = [&](const MotionMark& kept) { return kept.node == mark->node; };
        if (std::none_of(last.cbegin(), last.cend(), isSameHand))
            last.prepend(*mark);
    }
    m_marks = last;
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
