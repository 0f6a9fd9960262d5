#pragma once

#include <QElapsedTimer>

namespace vanto
{

class HandProcess;

/// Relates the time of this process to that of the trace of a simulated hand.
class HandClock
{
public:
    /// Moves the thumb root back and forth with control commands, as their marks contain the hand's
    /// time, and keeps the relation from the quickest answer. The finger must stand. Clears the
    /// trace.
    HandClock(HandProcess& hand, int node);

    /// The present time in the trace, in ms.
    double now() const;
    /// Largest error of now(), in ms.
    double error() const { return m_error; }

private:
    double elapsed() const { return 1e-6 * static_cast<double>(m_timer.nsecsElapsed()); }

    QElapsedTimer m_timer;
    double m_offset = 0;
    double m_error = 0;
};

} // namespace vanto
