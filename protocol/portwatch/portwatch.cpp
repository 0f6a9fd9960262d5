#include "portwatch.h"

#include "linemonitor.h"

#include <QSerialPort>

#include <utility>

#ifdef Q_OS_UNIX
#include <poll.h>
#else
#include <QSerialPortInfo>

#include <algorithm>
#endif

namespace vanto
{

namespace
{
constexpr int CheckIntervalMs = 200;

#ifdef Q_OS_UNIX
bool canBeChecked(const QSerialPort&)
{
    return true;
}

bool hasHungUp(const QSerialPort& port)
{
    // POLLHUP, POLLERR and POLLNVAL are reported without being requested.
    pollfd descriptor{port.handle(), 0, 0};
    return poll(&descriptor, 1, 0) > 0;
}
#else
/// A port that the system never listed cannot disappear from its list.
bool canBeChecked(const QSerialPort& port)
{
    const auto ports = QSerialPortInfo::availablePorts();
    return std::any_of(ports.begin(), ports.end(), [&port](const QSerialPortInfo& listed) {
        return listed.portName() == port.portName();
    });
}

bool hasHungUp(const QSerialPort& port)
{
    return !canBeChecked(port);
}
#endif
} // namespace

PortWatch::PortWatch(std::function<void()> close) : m_close(std::move(close))
{
    m_timer.setInterval(CheckIntervalMs);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { check(); });
    QObject::connect(&LineMonitor::instance(), &LineMonitor::sig_checkPorts, &m_timer,
                     [this] { check(); });
}

void PortWatch::start(const QSerialPort* port)
{
    m_opening.advance();
    m_closing = false;
    m_port = port;
    if (port && canBeChecked(*port))
        m_timer.start();
}

void PortWatch::stop()
{
    m_opening.advance();
    m_port = nullptr;
    m_timer.stop();
}

void PortWatch::check()
{
    if (!m_port || !m_port->isOpen())
        m_timer.stop();
    else if (hasHungUp(*m_port))
        closeLater();
}

void PortWatch::closeLater()
{
    if (!m_port || m_closing)
        return;
    m_closing = true;
    QMetaObject::invokeMethod(
        &m_timer,
        [this, opening = m_opening.token()] {
            if (opening.isCurrent())
                m_close();
        },
        Qt::QueuedConnection);
    LineMonitor::instance().reportLoss();
}

} // namespace vanto
