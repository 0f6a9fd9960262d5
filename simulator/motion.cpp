#include "motion.h"

#include <algorithm>
#include <cmath>

namespace vanto::simulator
{
namespace
{
constexpr double fullRange = 65535.0;
constexpr double fullSpeed = 255.0;
constexpr double fullRangeSeconds = 1.0;
} // namespace

int Scale::fromLogical(quint16 logical) const
{
    return atZero + static_cast<int>(std::lround((atFull - atZero) * (logical / fullRange)));
}

quint16 Scale::toLogical(int value) const
{
    if (atZero == atFull)
        return 0;
    const double share = static_cast<double>(value - atZero) / (atFull - atZero);
    return static_cast<quint16>(std::lround(std::clamp(share, 0.0, 1.0) * fullRange));
}

void FingerMotion::moveTo(quint16 target, quint8 speed, Moment now)
{
    rebase(now);
    m_target = target;
    m_speed = speed;
    m_stopped = false;
}

void FingerMotion::placeAt(quint16 position, Moment now)
{
    m_from = position;
    m_since = now;
    m_target = position;
    m_stopped = false;
}

void FingerMotion::stop(Moment now)
{
    rebase(now);
    m_stopped = true;
}

void FingerMotion::start(Moment now)
{
    rebase(now);
    m_stopped = false;
}

quint16 FingerMotion::position(Moment now) const
{
    return static_cast<quint16>(std::lround(exactPosition(now)));
}

bool FingerMotion::isMoving(Moment now) const
{
    return !m_stopped && m_speed != 0 && position(now) != m_target;
}

double FingerMotion::exactPosition(Moment now) const
{
    if (m_stopped)
        return m_from;
    const double seconds = std::chrono::duration<double>(now - m_since).count();
    const double reach = ticksPerSecond() * std::max(seconds, 0.0);
    return m_from + std::clamp(m_target - m_from, -reach, reach);
}

double FingerMotion::ticksPerSecond() const
{
    return m_speedFactor * (fullRange / fullRangeSeconds) * (m_speed / fullSpeed);
}

void FingerMotion::rebase(Moment now)
{
    m_from = exactPosition(now);
    m_since = now;
}

} // namespace vanto::simulator
