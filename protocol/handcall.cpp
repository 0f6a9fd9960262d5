#include "handcall.h"

#include <utility>

namespace vanto
{

/// A failure may be the first sign that the port has vanished. Then the target becomes stale here,
/// and the failure is not reported on its own.
void HandCall::noteResult(std::uint8_t result) const
{
    if (result != ResultCode::Success)
        LineMonitor::instance().checkPorts();
    if (isCurrent())
        LineMonitor::instance().reportResult(result);
}

void HandCall::report(const Reading& reading) const
{
    if (isCurrent())
        emit ReadingMonitor::instance().sig_read(reading);
}

bool HandCall::accept(std::string_view operation, std::uint8_t result)
{
    if (!isCurrent())
        return false;
    if (std::exchange(m_refused, false)) {
        if (m_report)
            m_report->reportHalted();
        return false;
    }
    if (result == ResultCode::Success)
        return true;
    if (!m_report || (result == ResultCode::Timeout && m_report->reportTimeout(m_target)))
        return false;
    // Must precede any other exchange with the hand.
    const std::uint8_t error = subError();
    if (isCurrent())
        m_report->reportFailure(m_target, operation, result, error);
    return false;
}

} // namespace vanto
