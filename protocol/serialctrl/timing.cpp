#include "timing.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QEventLoop>
#include <QTimer>

namespace vanto
{

namespace
{
constexpr int TickMs = 1;        ///< of the timer that ends a sleep
constexpr int EventSliceMs = 10; ///< longest event processing between two reads of the clock
} // namespace

std::uint32_t GetMilliSecondsImpl()
{
    static const qint64 start = QDateTime::currentMSecsSinceEpoch();
    return static_cast<std::uint32_t>(QDateTime::currentMSecsSinceEpoch() - start);
}

// Sleeps until the first event, because a hand that does not answer should not cost a processor.
// After it, which is usually the reply, it does not sleep past the end of the last millisecond.
void DelayMilliSecondsImpl(std::uint32_t milliseconds)
{
    const auto whole = static_cast<int>(milliseconds);
    const QTime target = QTime::currentTime().addMSecs(whole);
    QTimer wakeUp;
    wakeUp.setTimerType(Qt::PreciseTimer);
    bool mustSleep = true;
    for (;;) {
        const int left = QTime::currentTime().msecsTo(target);
        if (left <= 0 || left > whole) // elapsed, or the clock has been set back
            return;
        if (mustSleep) {
            if (!wakeUp.isActive())
                wakeUp.start(TickMs);
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        } else {
            QCoreApplication::processEvents(QEventLoop::AllEvents, EventSliceMs);
        }
        mustSleep = left > TickMs;
    }
}

} // namespace vanto
