#pragma once

class QSerialPort;

namespace vanto
{

/// Whether the port has reported an error or is not open, so that it delivers nothing more.
bool hasSerialPortFailed(const QSerialPort& port);

/// Processes events until the port has bytes to read or `milliseconds` have passed; returns at once
/// if the port fails. Returns whether bytes are available.
bool waitForSerialPortReadyRead(QSerialPort& port, int milliseconds);

} // namespace vanto
