#include "linemonitor.h"

namespace vanto
{

LineMonitor& LineMonitor::instance()
{
    static LineMonitor monitor;
    return monitor;
}

} // namespace vanto
