#pragma once

#include "portwatch.h"
#include "serialport.h"

#include <QSerialPort>

namespace vanto
{

/// SerialPort over QSerialPort: 8 data bits, no parity, one stop bit, no flow control.
///
/// Closes itself when the far end disappears, see PortWatch. Operations then fail at once, and
/// waits of the callers end with their usual time-outs.
class SerialPortQT : public SerialPort
{
public:
    SerialPortQT();
    ~SerialPortQT() override;

    std::int64_t bytesAvailable() override;
    std::int64_t read(std::uint8_t* buffer, std::uint32_t length) override;
    std::int64_t write(const std::uint8_t* buffer, std::uint32_t length) override;
    bool open(const char* name, std::uint32_t baudRate) override;
    void close() override;
    void clear() override;

private:
    void handleError(QSerialPort::SerialPortError error);

    QSerialPort m_port;
    PortWatch m_watch{[this] { close(); }};
};

} // namespace vanto
