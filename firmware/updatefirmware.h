#pragma once

#include "bootloaderlink.h"

#include <QSerialPort>

namespace vanto
{

/// Writes the firmware of an update file into the hand whose boot loader listens on the port, and
/// returns why that failed, or nothing.
///
/// Events are processed while the boot loader is waited for. While the file is read only `log` can
/// do so: a caller that wants to stay alive meanwhile processes events in it every 10 ms or so.
/// The function keeps nothing between calls, and the port is closed when it returns.
QString updateFirmware(QString portName, QSerialPort::BaudRate baudRate, QString filePath,
                       LogCallback log, ProgressCallback progress, UpdateLimits limits = {});

} // namespace vanto
