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
    return PortError::tr("The port is gone. Plug the adapter in again and press Refresh.");
}
} // namespace

QString describePortError(const QString& portName)
{
    if (portName.isEmpty())
        return PortError::tr(
            "No port is selected. Plug in the adapter of the hand and press Refresh.");
    QString path = QSerialPortInfo(portName).systemLocation();
    if (path.isEmpty())
        path = portName;
#ifdef Q_OS_UNIX
    const QFileInfo device(path);
    if (!device.exists())
        return unavailableText();
    if (!device.isReadable() || !device.isWritable())
        return PortError::tr(
                   "You have no right to use this port. It belongs to the group \"%1\"; become a "
                   "member of it with\n    sudo usermod -aG %1 $USER\nand log in again.")
            .arg(device.group());
#endif
    QSerialPort port(portName);
    if (port.open(QIODevice::ReadWrite))
        return {};
    switch (port.error()) {
    case QSerialPort::PermissionError:
        return PortError::tr(
            "Another program uses this port. Close it and try again. (ModemManager takes a "
            "new adapter for some seconds.)");
    case QSerialPort::DeviceNotFoundError:
        return unavailableText();
    default:
        return {};
    }
}

} // namespace vanto
