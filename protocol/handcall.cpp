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

void HandCall::report(const LimitReading& reading) const
{
    if (isCurrent())
        emit ReadingMonitor::instance().sig_currentLimitRead(reading);
}

void HandCall::reportTarget(std::string_view operation, Quantity quantity, std::uint8_t finger,
                            int target) const
{
    HandAction action;
    action.operation = operation;
    action.finger = finger;
    action.quantity = quantity;
    action.value = target;
    report(action);
}

void HandCall::reportOperation(std::string_view operation, std::span<const double> numbers) const
{
    HandAction action;
    action.kind = HandAction::Kind::Operation;
    action.operation = operation;
    action.values = numbers;
    // The first number of operations with one finger is the finger.
    if (operation.starts_with("setFinger") && !operation.ends_with("All") && !numbers.empty()) {
        action.finger = static_cast<std::uint8_t>(numbers.front());
        action.values = numbers.subspan(1);
    }
    report(action);
}

void HandCall::report(HandAction action) const
{
    action.node = m_target.node;
    action.token = m_target.token;
    action.origin = m_origin;
    if (isCurrent())
        emit ActionMonitor::instance().sig_action(action);
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
