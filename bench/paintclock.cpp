// Ends the program into which it is linked after the first paint and prints the time since the
// parent started the process, which includes loading.

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <chrono>
#include <cstdio>

namespace vanto
{

namespace
{
class PaintClock : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_painted) {
            m_painted = true;
            // Later, because this is the first of many paint events of the window.
            QTimer::singleShot(0, this, &PaintClock::report);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static void report()
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto start = std::chrono::nanoseconds(qgetenv("VANTO_BENCH_START").toLongLong());
        std::printf("%.3f\n", std::chrono::duration<double, std::milli>(now - start).count());
        std::fflush(stdout);
        QCoreApplication::exit(0);
    }

    bool m_painted = false;
};

void watchApplication()
{
    qApp->installEventFilter(new PaintClock(qApp));
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(watchApplication)

} // namespace vanto
