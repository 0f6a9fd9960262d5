#pragma once

#include "generation.h"

#include <QPointer>
#include <QTimer>

#include <functional>

class QSerialPort;

namespace vanto
{

/// Closes a serial port whose far end has disappeared.
///
/// Qt does not do this: depending on its version, such a port reports the same read error hundreds
/// of thousands of times per second, or nothing at all. In both cases it stays open and keeps one
/// core busy forever, and every wait for it ends in a time-out.
///
/// Therefore the handle of the port is polled while the port is open; closeLater() is for errors
/// that the port itself reports. Both lead to one queued call of `close`, because closing a port
/// inside its own signal is not safe. A queued call is dropped if the port is closed or opened
/// again first.
class PortWatch
{
public:
    explicit PortWatch(std::function<void()> close);

    /// Starts watching `port`, which must be open.
    void start(const QSerialPort* port);
    void stop();
    /// Call this when the port has reported a fatal error.
    void closeLater();

private:
    void check();

    std::function<void()> m_close;
    QPointer<const QSerialPort> m_port; ///< null: no port is open
    QTimer m_timer;
    Generation m_opening;   ///< advanced by every start() and stop()
    bool m_closing = false; ///< the call of `close` for this opening is queued
};

} // namespace vanto
