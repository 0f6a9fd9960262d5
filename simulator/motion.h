#pragma once

#include "moment.h"

#include <QtGlobal>

namespace vanto::simulator
{

// A linear scale over the logical positions 0..65535 of a finger.
struct Scale {
    int atZero = 0;
    int atFull = 65535;

    int fromLogical(quint16 logical) const;
    // Values beyond either end give that end.
    quint16 toLogical(int value) const;
};

// The logical position of one finger over time; computed from the clock whenever it is asked for.
class FingerMotion
{
public:
    explicit FingerMotion(double speedFactor = 1.0) : m_speedFactor(speedFactor) {}

    void moveTo(quint16 target, quint8 speed, Moment now);
    void retarget(quint16 target, Moment now) { moveTo(target, m_speed, now); }
    void placeAt(quint16 position, Moment now);
    void stop(Moment now);
    void start(Moment now);

    quint16 target() const { return m_target; }
    quint16 position(Moment now) const;
    bool isMoving(Moment now) const;

private:
    double exactPosition(Moment now) const;
    double ticksPerSecond() const;
    void rebase(Moment now);

    double m_speedFactor;
    double m_from = 0.0;
    Moment m_since{};
    quint16 m_target = 0;
    quint8 m_speed = 255;
    bool m_stopped = false;
};

} // namespace vanto::simulator
