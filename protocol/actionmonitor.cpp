#include "actionmonitor.h"

namespace vanto
{

ActionMonitor& ActionMonitor::instance()
{
    static ActionMonitor monitor;
    return monitor;
}

} // namespace vanto
