#pragma once

class QSerialPort;

namespace vanto
{

/// True if the port has reported an error or is not open, so that nothing more will come from it.
bool hasSerialPortFailed(const QSerialPort& port);

/// Processes events until the port has bytes to read or `milliseconds` have passed; ends at once
/// when the port fails. Tells whether there are bytes to read.
bool waitForSerialPortReadyRead(QSerialPort& port, int milliseconds);

} // namespace vanto
