#include "handclock.h"

#include "handprocess.h"

namespace vanto
{

namespace
{
constexpr int Tries = 40;
}

HandClock::HandClock(HandProcess& hand, int node)
{
    m_timer.start();
    for (int i = 0; i < Tries; ++i) {
        hand.clearTrace();
        const double before = elapsed();
        hand.command(QStringLiteral("set %1 position 5 %2").arg(node).arg(i % 2 == 0 ? 1 : 0));
        const double after = elapsed();
        const auto marks = hand.motionMarks();
        const double error = (after - before) / 2;
        if (marks.isEmpty() || (m_error > 0 && error > m_error))
            continue;
        m_error = error;
        m_offset = marks.constLast().ms - (before + after) / 2;
    }
    hand.clearTrace();
}

double HandClock::now() const
{
    return elapsed() + m_offset;
}

} // namespace vanto
