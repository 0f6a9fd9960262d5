#include "serialportqt.h"

#include "unreadlimit.h"

namespace vanto
{

namespace
{
constexpr std::int64_t Failed = -1;
}

SerialPortQT::SerialPortQT()
{
    QObject::connect(&m_port, &QSerialPort::errorOccurred, &m_port,
                     [this](QSerialPort::SerialPortError error) { handleError(error); });
}

SerialPortQT::~SerialPortQT()
{
    SerialPortQT::close();
}

std::int64_t SerialPortQT::bytesAvailable()
{
    return m_port.isOpen() ? m_port.bytesAvailable() : Failed;
}

std::int64_t SerialPortQT::read(std::uint8_t* buffer, std::uint32_t length)
{
    return m_port.isOpen() ? m_port.read(reinterpret_cast<char*>(buffer), length) : Failed;
}

std::int64_t SerialPortQT::write(const std::uint8_t* buffer, std::uint32_t length)
{
    return m_port.isOpen() ? m_port.write(reinterpret_cast<const char*>(buffer), length) : Failed;
}

bool SerialPortQT::open(const char* name, std::uint32_t baudRate)
{
    if (m_port.isOpen())
        return false;
    m_port.setPortName(QString::fromUtf8(name));
    m_port.setBaudRate(static_cast<qint32>(baudRate));
    m_port.setParity(QSerialPort::NoParity);
    m_port.setDataBits(QSerialPort::Data8);
    m_port.setStopBits(QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
    limitUnread(m_port);
    if (!m_port.open(QIODevice::ReadWrite))
        return false;
    m_watch.start(&m_port);
    return true;
}

void SerialPortQT::close()
{
    m_watch.stop();
    if (m_port.isOpen())
        m_port.close();
}

void SerialPortQT::clear()
{
    if (!m_port.isOpen())
        return;
    m_port.clear(QSerialPort::AllDirections);
    limitUnread(m_port);
}

void SerialPortQT::handleError(QSerialPort::SerialPortError error)
{
    if (error != QSerialPort::NoError && error != QSerialPort::TimeoutError)
        m_watch.closeLater();
}

} // namespace vanto
