#include "updatefirmware.h"

#include "portwatch.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace vanto
{

namespace
{
constexpr qint64 MaxHeaderLength = 1024; ///< bytes

/// The context of the texts, which the dialogs of the update show.
struct UpdateText {
    Q_DECLARE_TR_FUNCTIONS(FirmwareUpdater)
};

bool openPort(QSerialPort& port, QSerialPort::BaudRate baudRate)
{
    port.setBaudRate(baudRate, QSerialPort::AllDirections);
    port.setParity(QSerialPort::NoParity);
    port.setDataBits(QSerialPort::Data8);
    port.setStopBits(QSerialPort::OneStop);
    port.setFlowControl(QSerialPort::NoFlowControl);
    return port.open(QIODevice::ReadWrite);
}
} // namespace

QString checkUpdateFile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return UpdateText::tr("Open file '%1' failed.").arg(path);
    return parseUpdateHeader(file.readLine(MaxHeaderLength))
               ? QString()
               : UpdateText::tr("Invalid update file");
}

QString updatePrompt()
{
    return UpdateText::tr(
        "Power off the device and remove app other devices from bus, press OK when ready.\n"
        "Power on the device when prompted.");
}

QString updateSucceededText()
{
    return UpdateText::tr("Firmware updated successfully");
}

// By value: the caller's variables may change while events are processed.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
UpdateResult tryFirmwareUpdate(QString portName, QSerialPort::BaudRate baudRate, QString filePath,
                               LogCallback log, ProgressCallback progress, UpdateLimits limits)
{
    const UpdateFile file = loadUpdateFile(filePath, log);
    if (!file.failure.isEmpty())
        return {UpdateFailure::File, file.failure};
    QSerialPort port(portName);
    if (!openPort(port, baudRate))
        return {UpdateFailure::PortNotOpened,
                QCoreApplication::translate("UpdateFirmware", "Failed when openning port '%1'.")
                    .arg(portName)};
    // Closing the port ends a wait.
    PortWatch watch([&port] { port.close(); });
    watch.start(&port);

    port.clear(QSerialPort::AllDirections);
    BootLoaderLink bootLoader(port, std::move(log), std::move(progress), limits);
    bootLoader.begin();
    QString failure = bootLoader.wakeUp();
    if (failure.isEmpty() && file.hardware)
        failure = bootLoader.checkHardware(*file.hardware);
    if (failure.isEmpty())
        failure = bootLoader.transfer(file.image);
    if (failure.isEmpty())
        return {};
    return {bootLoader.wasRefused() ? UpdateFailure::Refused : UpdateFailure::NoAnswer, failure};
}

QString updateFirmware(QString portName, QSerialPort::BaudRate baudRate, QString filePath,
                       LogCallback log, ProgressCallback progress, UpdateLimits limits)
{
    return tryFirmwareUpdate(std::move(portName), baudRate, std::move(filePath), std::move(log),
                             std::move(progress), limits)
        .failure;
}

} // namespace vanto
