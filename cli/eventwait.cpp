#include "eventwait.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace vanto
{

namespace
{
constexpr int SliceMs = 5; ///< longest sleep between two checks
}

bool waitUntil(const std::function<bool()>& isDone, int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds, Qt::PreciseTimer);
    QTimer slices;
    slices.start(SliceMs);
    while (!isDone()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace vanto
