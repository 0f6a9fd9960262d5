#include "arrivalwait.h"

#include "eventwait.h"
#include "interruption.h"
#include "motionguard.h"
#include "parameter.h"

#include <QJsonArray>

#include <algorithm>
#include <cstdlib>

namespace vanto
{

namespace
{
constexpr int PollMs = 10;
constexpr int StandstillMs = 3000; ///< the slowest motion is longer than Standstill in this time
constexpr int Standstill = 8;      ///< largest motion of a finger that stands, in its unit
} // namespace

bool ArrivalWait::run(const Read& read)
{
    QElapsedTimer timer;
    timer.start();
    m_still.start();
    bool arrived = false;
    while (!arrived && !m_answer.hasFailed() && !Interruption::isRequested()) {
        QElapsedTimer poll;
        poll.start();
        const auto ways = readCurrents() ? read() : std::nullopt;
        if (!ways)
            break;
        arrived = std::ranges::all_of(*ways, &Way::hasArrived);
        if (!arrived && areStandingStill(*ways))
            break;
        if (const auto left = PollMs - static_cast<int>(poll.elapsed()); left > 0 && !arrived)
            waitUntil(&Interruption::isRequested, left);
    }
    m_milliseconds = timer.elapsed();
    return arrived;
}

void ArrivalWait::writeResult()
{
    QJsonArray highest;
    for (const int current : m_highest)
        highest.append(current);
    m_answer.data.insert(QStringLiteral("milliseconds"), m_milliseconds);
    m_answer.data.insert(QStringLiteral("highestCurrent"), highest);
}

bool ArrivalWait::readCurrents()
{
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        std::uint16_t current = 0;
        if (!m_tool.hand().call().perform<&VantoProtocol::getFingerCurrent>(finger, &current))
            return false;
        m_highest[finger] = std::max(m_highest[finger], int{current});
        if (!MotionGuard::isOverCurrent(current))
            continue;
        m_answer.fail(ExitStatus::OverCurrent, MotionGuard::overCurrentText(finger, current));
        m_tool.hand().halt();
        return false;
    }
    return true;
}

/// Reports a finger that stands.
bool ArrivalWait::areStandingStill(const QList<Way>& ways)
{
    for (const Way& way : ways) {
        std::optional<int>& at = m_at[way.finger];
        if (way.hasArrived || (at && std::abs(*at - way.current) <= Standstill))
            continue;
        at = way.current;
        m_still.start();
    }
    if (!m_still.hasExpired(StandstillMs))
        return false;
    const auto way = std::ranges::find(ways, false, &Way::hasArrived);
    m_answer.fail(ExitStatus::Refused,
                  QStringLiteral("The finger %1 has stopped at %2, before its target %3.")
                      .arg(ParameterNames::finger(way->finger))
                      .arg(way->current)
                      .arg(way->target));
    return true;
}

} // namespace vanto
