#pragma once

#include <QDateTime>
#include <QElapsedTimer>

#include <cstdint>

namespace vanto
{

/// The time of samples and markers: monotonic, in microseconds since the creation of the clock. The
/// time of day is that of the creation plus this time, so it does not jump when the system's clock
/// is set.
class TelemetryClock
{
public:
    TelemetryClock() { m_timer.start(); }

    std::int64_t nowUs() const { return m_timer.nsecsElapsed() / 1000; }
    QDateTime timeOfDay(std::int64_t timeUs) const { return m_start.addMSecs(timeUs / 1000); }

private:
    QDateTime m_start = QDateTime::currentDateTimeUtc();
    QElapsedTimer m_timer;
};

} // namespace vanto
