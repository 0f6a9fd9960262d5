#include "replylimits.h"

namespace vanto
{

ReplyLimits& ReplyLimits::current()
{
    static ReplyLimits limits;
    return limits;
}

} // namespace vanto
