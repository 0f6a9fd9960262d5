#include "haltrecord.h"

#include "halttrace.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vanto
{

namespace
{
constexpr double LongestDrift = 64; ///< ticks
constexpr int NearTarget = 256;
constexpr double Rounding = 4; ///< ticks; of marks, and of the times between them
constexpr int FingerStart = 0x49;
constexpr int CommandOffset = 4;

QString textOf(const TracedFrame& frame)
{
    return QStringLiteral("%1 ms %2")
        .arg(frame.ms, 0, 'f', 1)
        .arg(QLatin1String(frame.bytes.toHex(' ')));
}

bool isStart(const TracedFrame& frame)
{
    return frame.protocol == QLatin1String("serialctrl") &&
           frame.bytes[CommandOffset] == FingerStart;
}
} // namespace

HaltRecord::HaltRecord(const HandProcess& hand, int node, const HaltMoments& moments)
{
    readFrames(hand, moments);
    const auto marks = hand.motionMarks();
    const double stands = standsFrom(marks, node, moments.press, moments.halted);
    wasMoving = stands > moments.press;
    standMs = stands - moments.press;
    readMotion(marks, node, moments.halted, moments.proceed);
    readMotion(marks, node, moments.proceed, moments.end);
}

/// A finger that was near its target at the press keeps it, and reaches it with speed 1.
void HaltRecord::readMotion(const QList<MotionMark>& marks, int node, double from, double to)
{
    const auto places = HandProcess::positionsAt(marks, node, from);
    const auto drifts = longestDrifts(marks, node, from, to);
    const auto ends = HandProcess::positionsAt(marks, node, to);
    for (qsizetype finger = 0; finger < drifts.size(); ++finger) {
        const double toGoal = std::abs(m_goals.value(finger, -NearTarget) - places[finger]);
        const double left = std::abs(m_goals.value(finger, -NearTarget) - ends[finger]);
        const bool arrives =
            toGoal <= NearTarget && std::abs(toGoal - left - drifts[finger]) <= Rounding;
        double& longest = arrives ? arrival : drift;
        longest = std::max(longest, drifts[finger]);
        if (!arrives && drifts[finger] > LongestDrift)
            findings.append(QStringLiteral("finger %1 moves %2 ticks from %3 to %4 ms")
                                .arg(finger)
                                .arg(drifts[finger], 0, 'f', 0)
                                .arg(from, 0, 'f', 1)
                                .arg(to, 0, 'f', 1));
    }
}

void HaltRecord::readFrames(const HandProcess& hand, const HaltMoments& moments)
{
    HaltFrames filter;
    QStringList late;
    bool found = false;
    for (const TracedFrame& frame : hand.requests()) {
        const bool halts = filter.accept(frame);
        const bool moves = HaltFrames::isMotion(frame) || isStart(frame);
        const double ms = frame.ms;
        if (ms < moments.press)
            continue;
        if (const auto goals = HaltFrames::goals(frame); halts && !goals.isEmpty())
            m_goals = goals;
        if (ms < moments.halted && halts) {
            if (!std::exchange(found, true))
                firstFrameMs = ms - moments.press;
        } else if (ms < moments.halted) {
            late.append(textOf(frame));
        } else if (ms < moments.proceed) {
            if (moves && !(halts && ms > moments.secondPress && ms < moments.secondHalted))
                findings.append(QStringLiteral("motion while halted: ") + textOf(frame));
        } else if (ms < moments.end && moves && !isStart(frame)) {
            findings.append(QStringLiteral("motion after Continue: ") + textOf(frame));
        }
    }
    lateFrames = static_cast<int>(late.size());
    if (!found)
        findings.append(QStringLiteral("no frame of a halt"));
    if (lateFrames > 1)
        findings.append(QStringLiteral("other frames after the press: ") +
                        late.join(QLatin1String("; ")));
}

void HaltTotals::add(const HaltRecord& record, const HaltMoments& moments)
{
    m_firstFrames.push_back(record.firstFrameMs);
    if (record.wasMoving)
        m_stands.push_back(record.standMs);
    m_halted.push_back(moments.halted - moments.press);
    m_lateFrames += record.lateFrames;
    m_drift = std::max(m_drift, record.drift);
    m_arrival = std::max(m_arrival, record.arrival);
}

QString HaltTotals::text() const
{
    const auto times = [](std::vector<double> values) {
        std::sort(values.begin(), values.end());
        return values.empty() ? QStringLiteral("none")
                              : QStringLiteral("%1 ms (median), at most %2 ms")
                                    .arg(values[values.size() / 2], 0, 'f', 2)
                                    .arg(values.back(), 0, 'f', 2);
    };
    return QStringLiteral("first frame %1; %2 moving hands stand after %3; halted %4; %5 other "
                          "frames, drift at most %6 ticks, %7 to a near target")
        .arg(times(m_firstFrames))
        .arg(m_stands.size())
        .arg(times(m_stands), times(m_halted))
        .arg(m_lateFrames)
        .arg(m_drift, 0, 'f', 0)
        .arg(m_arrival, 0, 'f', 0);
}

} // namespace vanto
