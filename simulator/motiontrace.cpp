#include "motiontrace.h"

#include <algorithm>

namespace vanto::simulator
{
namespace
{
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds LongestWait = 1h; ///< the timer cannot wait any length

bool isSameMotion(const FingerMotion& first, const FingerMotion& second, TimePoint now)
{
    return first.velocity(now) == second.velocity(now) &&
           first.position(now) == second.position(now);
}
} // namespace

MotionTrace::MotionTrace(Trace& trace, QObject* parent) : QObject(parent), m_trace(trace)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] { update(Clock::now()); });
}

void MotionTrace::add(const Hand& hand)
{
    Watch watch{&hand, {}, Clock::now(), hand.id};
    std::ranges::transform(hand.fingers, watch.motions.begin(), &Finger::motion);
    m_watches.push_back(watch);
}

void MotionTrace::update(TimePoint now)
{
    if (!m_trace.isOpen())
        return;
    TimePoint next = TimePoint::max();
    for (Watch& watch : m_watches)
        next = std::min(next, updateHand(watch, now));
    if (next == TimePoint::max()) {
        m_timer.stop();
        return;
    }
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - now);
    m_timer.start(std::min(wait, LongestWait));
}

TimePoint MotionTrace::updateHand(Watch& watch, TimePoint now)
{
    const auto nextArrival = [&watch] {
        TimePoint next = TimePoint::max();
        for (const FingerMotion& motion : watch.motions) {
            if (motion.isMoving(watch.since))
                next = std::min(next, motion.arrival());
        }
        return next;
    };
    for (TimePoint next = nextArrival(); next <= now; next = nextArrival()) {
        watch.since = next;
        write(watch, next);
    }

    bool changed = watch.id != watch.hand->id;
    watch.id = watch.hand->id;
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        const FingerMotion& motion = watch.hand->fingers[finger].motion;
        changed = changed || !isSameMotion(watch.motions[finger], motion, now);
        watch.motions[finger] = motion;
    }
    watch.since = now;
    if (changed)
        write(watch, now);
    return nextArrival();
}

void MotionTrace::write(const Watch& watch, TimePoint time)
{
    bool moves = false;
    QStringList positions;
    for (const FingerMotion& motion : watch.motions) {
        moves = moves || motion.isMoving(time);
        positions.append(QString::number(motion.position(time)));
    }
    m_trace.writeMotion(time, watch.hand->id, moves, positions);
}

} // namespace vanto::simulator
