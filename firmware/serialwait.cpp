#include "serialwait.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QSerialPort>
#include <QTimer>

namespace vanto
{

namespace
{
constexpr int EventSliceMs = 10; ///< longest sleep between two reads of the clock
}

bool hasSerialPortFailed(const QSerialPort& port)
{
    const bool hasError =
        port.error() != QSerialPort::NoError && port.error() != QSerialPort::TimeoutError;
    return hasError || !port.isOpen();
}

bool waitForSerialPortReadyRead(QSerialPort& port, int milliseconds)
{
    // Not the time of day: it jumps at midnight and when the clock is set.
    const QDeadlineTimer deadline(milliseconds);
    QTimer wakeUp;
    while (port.bytesAvailable() <= 0 && !hasSerialPortFailed(port) && !deadline.hasExpired()) {
        if (!wakeUp.isActive())
            wakeUp.start(EventSliceMs);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return port.bytesAvailable() > 0;
}

} // namespace vanto
