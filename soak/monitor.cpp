#include "monitor.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace vanto
{

namespace
{
constexpr int LoopCheckMs = 20;
constexpr qint64 GapLimitMs = 500;     ///< allowed blocking time of the event loop
constexpr qint64 ThemeChangeMs = 3000; ///< from the choice of a theme until it is shown
constexpr double FarFromPlace = 1024;  ///< ticks; a halt reads a moving finger before it writes
constexpr qint64 MaxGapMs = 5000;      ///< not explained by a busy machine

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

constexpr int WriteCalibration = 0x44; ///< of SerialCtrl
constexpr int FirstCalibrationRegister = 1020;
constexpr int LastCalibrationRegister = 1042;

/// Commands of SerialCtrl that write a parameter.
bool isParameterCommand(int command)
{
    return (command >= 0x45 && command <= 0x48) || command == 0x60 || command == 0x61;
}

/// The first register of each kind of parameter; those of fingers are six.
constexpr std::array ParameterRegisters{1045, 1055, 1065, 1075, 1095, 1115};

bool isParameterRegister(int reg)
{
    return reg == 1008 || reg == 1009 ||
           std::any_of(ParameterRegisters.begin(), ParameterRegisters.end(),
                       [reg](int first) { return reg >= first && reg < first + 6; });
}

QString hexOf(const TracedFrame& frame)
{
    return QString::fromLatin1(frame.bytes.toHex(' '));
}
} // namespace

Monitor::Monitor(HandProcess& hand, bool slow, bool busy, const HandClock* clock)
    : m_hand(hand),
      m_limitMs(slow ? 2 * GapLimitMs : GapLimitMs),
      m_sampler(static_cast<int>(m_limitMs / 2), static_cast<int>(m_limitMs / 4)),
      m_busyMachine(busy),
      m_overlapCheck(clock)
{
    s_messages = &m_findings;
    qInstallMessageHandler(handleMessage);
    m_loopTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_loopTimer, &QTimer::timeout, this, [this] { checkEventLoop(); });
    m_sinceAction.start();
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
    const auto [frames, marks] = m_hand.takeTrace();
    m_marks += marks;
    for (const QString& finding : m_overlapCheck.check(frames))
        addFinding(finding);
    for (const TracedFrame& frame : frames) {
        m_faults += frame.marks.contains(QLatin1String("fault="));
        if (frame.direction != QLatin1String("rx"))
            continue;
        ++m_exchanges;
        checkWrite(frame);
        const bool halts = m_haltFrames.accept(frame) && m_haltAllowed && keepsPlaces(frame);
        m_haltWrites += m_quiet && halts && HaltFrames::isMotion(frame);
        if (m_quiet && HaltFrames::isMotion(frame) && !halts)
            addFinding(describeMotion(frame));
    }
    keepLastMarks();
    m_processorMs = processorMs();
    m_sinceCheck.restart(); // excludes the time for reading a long trace
    m_sampler.restart();
}

void Monitor::beginRestore(const QList<Write>& allowed)
{
    checkTrace();
    m_allowed = allowed;
}

void Monitor::endRestore()
{
    checkTrace();
    m_allowed.reset();
}

void Monitor::checkWrite(const TracedFrame& request)
{
    const bool modbus = request.protocol == QLatin1String("modbus");
    const auto byte = [&](qsizetype index) { return std::uint8_t(request.bytes[index]); };
    constexpr int ReadRegisters = 3;
    if (request.bytes.size() < 7 || (modbus && byte(1) == ReadRegisters))
        return;
    const int what =
        modbus ? qFromBigEndian<std::uint16_t>(request.bytes.constData() + 2) : byte(4);
    if (modbus ? what >= FirstCalibrationRegister && what <= LastCalibrationRegister
               : what == WriteCalibration)
        addFinding(QStringLiteral("the calibration was written: ") + hexOf(request));
    if (!m_allowed || !(modbus ? isParameterRegister(what) : isParameterCommand(what)))
        return;
    ++m_restoreWrites;
    const bool isAllowed =
        std::any_of(m_allowed->cbegin(), m_allowed->cend(), [&](const Write& write) {
            const bool hasFinger = write.command < 0x60;
            return modbus ? what == write.reg + write.finger
                          : what == write.command && (!hasFinger || byte(6) == write.finger);
        });
    if (!isAllowed)
        addFinding(QStringLiteral("written without its tick: ") + hexOf(request));
}

/// An unexpected motion, with what a halt would have to agree with.
QString Monitor::describeMotion(const TracedFrame& request) const
{
    QStringList places;
    for (const double place : HandProcess::positionsAt(m_marks, request.node, request.ms))
        places.append(QString::number(qRound(place)));
    return QStringLiteral("unexpected motion: %1; node %2, the fingers at %3, halt %4")
        .arg(hexOf(request))
        .arg(request.node)
        .arg(places.join(QLatin1Char(' ')),
             QLatin1String(m_haltAllowed ? "allowed" : "not allowed"));
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
    const qint64 limitMs = m_themeChanges ? 2 * m_limitMs : m_limitMs;
    if (m_sinceThemeChange.hasExpired(ThemeChangeMs))
        m_themeChanges = false;
    if (gap > limitMs && (!m_busyMachine || used > limitMs || gap > MaxGapMs)) {
        addFinding(QStringLiteral("the event loop was blocked for %1 ms, with %2 ms of processor "
                                  "time; the last action, '%3', was %4 ms ago")
                       .arg(gap)
                       .arg(used)
                       .arg(QLatin1String(m_action))
                       .arg(m_sinceAction.elapsed()));
        for (const QString& stack : m_sampler.stacks())
            std::fprintf(stderr, "while it was blocked:\n    %s\n", qPrintable(stack));
    }
    m_sampler.restart();
}

void Monitor::noteAction(const char* name)
{
    m_action = name;
    m_sinceAction.restart();
}

void Monitor::addFinding(const QString& finding)
{
    std::fprintf(stderr, "FINDING: %s\n", qPrintable(finding));
    m_findings.append(finding);
}

} // namespace vanto
