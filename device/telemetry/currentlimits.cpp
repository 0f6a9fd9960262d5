#include "currentlimits.h"

#include "actionmonitor.h"
#include "readingmonitor.h"

namespace vanto
{

CurrentLimits::CurrentLimits(QObject* parent) : QObject(parent)
{
    connect(&ReadingMonitor::instance(), &ReadingMonitor::sig_currentLimitRead, this,
            [this](const LimitReading& reading) {
                note(reading.finger, {reading.node, reading.token, reading.limit});
            });
    connect(&ActionMonitor::instance(), &ActionMonitor::sig_action, this,
            [this](const HandAction& action) {
                if (action.operation == "setFingerCurrentLimit" && action.finger &&
                    !action.values.empty())
                    note(*action.finger, {action.node, action.token,
                                          static_cast<std::uint16_t>(action.values.front())});
            });
}

void CurrentLimits::note(std::uint8_t finger, const Limit& limit)
{
    if (finger >= FingerCount)
        return;
    m_limits[finger] = limit;
    emit sig_changed();
}

FingerLimits CurrentLimits::of(std::uint8_t node) const
{
    FingerLimits limits;
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        const Limit& limit = m_limits[finger];
        if (limit.node == node && limit.token.isCurrent())
            limits[finger] = limit.milliamperes;
    }
    return limits;
}

} // namespace vanto
