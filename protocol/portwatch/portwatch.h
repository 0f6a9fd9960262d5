#pragma once

#include "generation.h"

#include <QPointer>
#include <QTimer>

#include <functional>

class QSerialPort;

namespace vanto
{

/// Closes a serial port whose far end has gone.
///
/// Qt does not do it: depending on its version such a port reports the same read error hundreds of
/// thousands of times a second, or nothing at all. In both cases it stays "open" and keeps one core
/// busy for ever, and every wait for it ends in a time-out.
///
/// So the port's handle is polled while the port is open, and errors that the port does report are
/// a second source. Either leads to one queued call of `close`: closing a port inside its own
/// signal is not safe. A call that is on its way when the port is closed or opened anew is dropped.
class PortWatch
{
public:
    explicit PortWatch(std::function<void()> close);

    /// Starts watching `port`, which has been opened.
    void opened(const QSerialPort* port);
    void closed();
    /// The port has reported an error that means the end of the line.
    void failed();

private:
    void check();

    std::function<void()> m_close;
    QPointer<const QSerialPort> m_port; ///< null: nothing is open
    QTimer m_timer;
    Generation m_opening;   ///< advanced by every opened() and closed()
    bool m_closing = false; ///< the close of the present opening is on its way
};

} // namespace vanto
