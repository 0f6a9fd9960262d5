#pragma once

#include <QPointer>
#include <QTimer>

#include <functional>

class QSerialPort;

/// Closes a serial port whose far end has gone.
///
/// Qt is no help with it: depending on its version such a port reports the same read error hundreds
/// of thousands of times a second, or nothing at all. In both cases it stays "open", its notifier
/// keeps one core busy for ever, and whoever waits runs into a time-out.
///
/// So the port's handle is polled while the port is open, and errors that the port does report are
/// a second source. Either leads to one queued call of `close`: closing a port inside its own
/// signal is not safe. A call that is on its way when the port is closed or opened anew is dropped.
class PortWatch
{
public:
    explicit PortWatch(std::function<void()> close);

    /// Starts watching `port`, which has been opened. It must be reported by closed() before it is
    /// destroyed, unless the watch goes first.
    void opened(const QSerialPort* port);
    void closed();
    /// The port has reported an error that means the end of the line.
    void failed();

private:
    void look();

    std::function<void()> m_close;
    QPointer<const QSerialPort> m_port; ///< null: nothing is open
    QTimer m_timer;
    unsigned m_opening = 0; ///< changes with every opened() and closed()
    bool m_closing = false; ///< the close of the present opening is on its way
};
