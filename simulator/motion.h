#pragma once

#include "timepoint.h"

#include <cstdint>

namespace vanto::simulator
{

/// A linear scale over the logical positions 0 to 65535 of a finger.
struct Scale {
    int atZero = 0;
    int atFull = 65535;

    int fromLogical(std::uint16_t logical) const;
    /// Clamps values outside the scale to its ends.
    std::uint16_t toLogical(int value) const;
};

/// The logical position of one finger over time, computed from the clock on each call.
class FingerMotion
{
public:
    FingerMotion() = default;
    /// With `latchesStop`, a stopped finger stores new targets but stands until start().
    FingerMotion(double speedFactor, bool latchesStop)
        : m_speedFactor(speedFactor), m_latchesStop(latchesStop)
    {
    }

    void moveTo(std::uint16_t target, std::uint8_t speed, TimePoint now);
    void retarget(std::uint16_t target, TimePoint now) { moveTo(target, m_speed, now); }
    /// Applies to the motion under way.
    void setSpeed(std::uint8_t speed, TimePoint now);
    void placeAt(std::uint16_t position, TimePoint now);
    /// Stops without a target to continue to, and clears an earlier stop.
    void reset(TimePoint now);
    /// The finger stands, but keeps its target.
    void stop(TimePoint now);
    void start(TimePoint now);

    std::uint16_t target() const { return m_target; }
    std::uint16_t position(TimePoint now) const;
    bool isMoving(TimePoint now) const { return now < arrival(); }
    bool isStopped() const { return m_stopped; }
    /// Ticks per second, negative towards 0.
    double velocity(TimePoint now) const;
    /// The end of the motion under way or of the last one; TimePoint::max() if it has no end that
    /// can be computed.
    TimePoint arrival() const;

private:
    double exactPosition(TimePoint now) const;
    double ticksPerSecond() const;
    void rebase(TimePoint now);

    double m_speedFactor = 1.0;
    bool m_latchesStop = false;
    double m_from = 0.0;
    TimePoint m_since{};
    std::uint16_t m_target = 0;
    std::uint8_t m_speed = 255;
    bool m_stopped = false;
};

} // namespace vanto::simulator
