#pragma once

#include "serialport.h"

#include <QSerialPort>

/// SerialPort over QSerialPort: 8 data bits, no parity, one stop bit, no flow control.
///
/// A port whose far end has gone makes QSerialPort report the same read error hundreds of
/// thousands of times a second while it stays "open". Such a port closes itself; operations on it
/// then fail at once and its users run into their ordinary time-outs.
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
    unsigned m_opening = 0;    ///< number of the present opening
    unsigned m_closingFor = 0; ///< the opening for which a close is on its way
};
