#include "handcall.h"

namespace vanto
{

bool HandCall::accept(std::string_view operation, std::uint8_t result)
{
    if (!isCurrent())
        return false;
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
