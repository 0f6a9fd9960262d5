#pragma once

#include "bootloaderlink.h"

#include <QSerialPort>

namespace vanto
{

/// Why the file is not an update file with a header; empty if it is one. The user is told before
/// the hand is switched off.
QString checkUpdateFile(const QString& path);

/// What the user has to do before the transfer.
QString updatePrompt();
/// The message at the end.
QString updateSucceededText();

enum class UpdateFailure { None, File, PortNotOpened, NoAnswer, Refused };

struct UpdateResult {
    UpdateFailure cause = UpdateFailure::None;
    QString failure; ///< for the user; empty on success
};

/// Writes the firmware of an update file to the hand whose boot loader listens on the port.
///
/// Processes events while it waits for the boot loader, but not while it reads the file: a caller
/// that must stay responsive processes events in `log`, about every 10 ms. The function keeps no
/// state between calls, and the port is closed when it returns.
UpdateResult tryFirmwareUpdate(QString portName, QSerialPort::BaudRate baudRate, QString filePath,
                               LogCallback log, ProgressCallback progress,
                               UpdateLimits limits = {});
/// The same for callers to whom the cause does not matter: returns the reason of a failure, or an
/// empty string.
QString updateFirmware(QString portName, QSerialPort::BaudRate baudRate, QString filePath,
                       LogCallback log, ProgressCallback progress, UpdateLimits limits = {});

} // namespace vanto
