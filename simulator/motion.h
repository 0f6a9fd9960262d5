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
    explicit FingerMotion(double speedFactor = 1.0) : m_speedFactor(speedFactor) {}

    void moveTo(std::uint16_t target, std::uint8_t speed, TimePoint now);
    void retarget(std::uint16_t target, TimePoint now) { moveTo(target, m_speed, now); }
    void placeAt(std::uint16_t position, TimePoint now);
    void stop(TimePoint now);
    void start(TimePoint now);

    std::uint16_t target() const { return m_target; }
    std::uint16_t position(TimePoint now) const;
    bool isMoving(TimePoint now) const;

private:
    double exactPosition(TimePoint now) const;
    double ticksPerSecond() const;
    void rebase(TimePoint now);

    double m_speedFactor;
    double m_from = 0.0;
    TimePoint m_since{};
    std::uint16_t m_target = 0;
    std::uint8_t m_speed = 255;
    bool m_stopped = false;
};

} // namespace vanto::simulator
