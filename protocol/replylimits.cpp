#include "replylimits.h"

ReplyLimits& ReplyLimits::current()
{
    static ReplyLimits limits;
    return limits;
}
