#include "readingmonitor.h"

namespace vanto
{

ReadingMonitor& ReadingMonitor::instance()
{
    static ReadingMonitor monitor;
    return monitor;
}

} // namespace vanto
