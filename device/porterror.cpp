#include "porterror.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSerialPort>
#include <QSerialPortInfo>

namespace vanto
{

namespace
{
struct PortError {
    Q_DECLARE_TR_FUNCTIONS(PortError)
};

QString unavailableText()
{
    return PortError::tr(
        "The port is no longer available. Plug the adapter in again and click Refresh.");
}
} // namespace

QString describePortError(const QString& portName)
{
    if (portName.isEmpty())
        return PortError::tr("No port is selected. Plug in the hand's adapter and click Refresh.");
    QString path = QSerialPortInfo(portName).systemLocation();
    if (path.isEmpty())
        path = portName;
#ifdef Q_OS_UNIX
    const QFileInfo device(path);
    if (!device.exists())
        return unavailableText();
    if (!device.isReadable() || !device.isWritable())
        return PortError::tr(
                   "You do not have permission to use this port. It belongs to the group \"%1\". "
                   "To join that group, run\n    sudo usermod -aG %1 $USER\nand log in again.")
            .arg(device.group());
#endif
    QSerialPort port(portName);
    if (port.open(QIODevice::ReadWrite))
        return {};
    switch (port.error()) {
    case QSerialPort::PermissionError:
        return PortError::tr(
            "Another program is using this port. Close it and try again. (ModemManager may use a "
            "new adapter for a few seconds.)");
    case QSerialPort::DeviceNotFoundError:
        return unavailableText();
    default:
        return {};
    }
}

} // namespace vanto
