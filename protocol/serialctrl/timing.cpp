#include "timing.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QThread>

namespace vanto
{

namespace
{
constexpr int EventSliceMs = 10; ///< longest event processing between two reads of the clock
}

std::uint32_t GetMilliSecondsImpl()
{
    static const qint64 start = QDateTime::currentMSecsSinceEpoch();
    return static_cast<std::uint32_t>(QDateTime::currentMSecsSinceEpoch() - start);
}

void DelayMilliSecondsImpl(std::uint32_t milliseconds)
{
    const auto whole = static_cast<int>(milliseconds);
    const QTime target = QTime::currentTime().addMSecs(whole);
    for (;;) {
        const int left = QTime::currentTime().msecsTo(target);
        if (left <= 0 || left > whole) // elapsed, or the clock has been set back
            return;
        QCoreApplication::processEvents(QEventLoop::AllEvents, EventSliceMs);
        QThread::yieldCurrentThread(); // on a busy machine the others need the time more
    }
}

} // namespace vanto
