#include "motion.h"

#include <algorithm>
#include <cmath>

namespace vanto::simulator
{
namespace
{
constexpr double FullRange = 65535.0;
constexpr double FullSpeed = 255.0;
constexpr double FullRangeSeconds = 1.0;
constexpr double EndlessSeconds = 1e8; ///< longer motions would overflow a TimePoint
} // namespace

int Scale::fromLogical(std::uint16_t logical) const
{
    return atZero + static_cast<int>(std::lround((atFull - atZero) * (logical / FullRange)));
}

std::uint16_t Scale::toLogical(int value) const
{
    if (atZero == atFull)
        return 0;
    const double fraction = static_cast<double>(value - atZero) / (atFull - atZero);
    return static_cast<std::uint16_t>(std::lround(std::clamp(fraction, 0.0, 1.0) * FullRange));
}

void FingerMotion::moveTo(std::uint16_t target, std::uint8_t speed, TimePoint now)
{
    rebase(now);
    m_target = target;
    m_speed = speed;
    m_stopped = m_stopped && m_latchesStop;
}

void FingerMotion::setSpeed(std::uint8_t speed, TimePoint now)
{
    rebase(now);
    m_speed = speed;
}

void FingerMotion::placeAt(std::uint16_t position, TimePoint now)
{
    m_from = position;
    m_since = now;
    m_target = position;
}

void FingerMotion::reset(TimePoint now)
{
    placeAt(position(now), now);
    m_stopped = false;
}

void FingerMotion::stop(TimePoint now)
{
    rebase(now);
    m_stopped = true;
}

void FingerMotion::start(TimePoint now)
{
    rebase(now);
    m_stopped = false;
}

std::uint16_t FingerMotion::position(TimePoint now) const
{
    return static_cast<std::uint16_t>(std::lround(exactPosition(now)));
}

double FingerMotion::velocity(TimePoint now) const
{
    if (!isMoving(now))
        return 0.0;
    return m_target > m_from ? ticksPerSecond() : -ticksPerSecond();
}

TimePoint FingerMotion::arrival() const
{
    if (m_stopped || m_speed == 0)
        return m_since;
    const std::chrono::duration<double> travel(std::abs(m_target - m_from) / ticksPerSecond());
    if (travel.count() > EndlessSeconds)
        return TimePoint::max();
    return m_since + std::chrono::duration_cast<Clock::duration>(travel);
}

double FingerMotion::exactPosition(TimePoint now) const
{
    if (m_stopped)
        return m_from;
    const double seconds = std::chrono::duration<double>(now - m_since).count();
    const double distance = ticksPerSecond() * std::max(seconds, 0.0);
    return m_from + std::clamp(m_target - m_from, -distance, distance);
}

double FingerMotion::ticksPerSecond() const
{
    return m_speedFactor * (FullRange / FullRangeSeconds) * (m_speed / FullSpeed);
}

void FingerMotion::rebase(TimePoint now)
{
    m_from = exactPosition(now);
    m_since = now;
}

} // namespace vanto::simulator
