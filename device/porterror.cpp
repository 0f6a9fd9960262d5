#include "porterror.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLockFile>
#include <QSerialPort>
#include <QSerialPortInfo>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#endif

namespace vanto
{

namespace
{
struct PortError {
    Q_DECLARE_TR_FUNCTIONS(PortError)
};

/// The path of the device; the name itself if the system does not list it.
QString devicePath(const QString& portName)
{
    const QString path = QSerialPortInfo(portName).systemLocation();
    return path.isEmpty() ? portName : path;
}
/// A program that was killed leaves its lock file behind.
bool isRunning([[maybe_unused]] qint64 process)
{
#ifdef Q_OS_UNIX
    return kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM;
#else
    return true;
#endif
}
} // namespace

PortProblem examinePort(const QString& portName)
{
    if (portName.isEmpty())
        return PortProblem::NoPort;
#ifdef Q_OS_UNIX
    const QFileInfo device(devicePath(portName));
    if (!device.exists())
        return PortProblem::NotThere;
    if (!device.isReadable() || !device.isWritable())
        return PortProblem::NoPermission;
#endif
    QSerialPort port(portName);
    if (port.open(QIODevice::ReadWrite))
        return PortProblem::None;
    switch (port.error()) {
    case QSerialPort::PermissionError:
        return PortProblem::InUse;
    case QSerialPort::DeviceNotFoundError:
        return PortProblem::NotThere;
    default:
        return PortProblem::Unknown;
    }
}

std::optional<PortHolder> findPortHolder(const QString& portName)
{
    // Where QSerialPort and other programs keep the lock files of serial ports.
    const QStringList folders{QStringLiteral("/var/lock"),
                              QStringLiteral("/etc/locks"),
                              QStringLiteral("/var/spool/locks"),
                              QStringLiteral("/var/spool/uucp"),
                              QStringLiteral("/tmp"),
                              QStringLiteral("/var/tmp"),
                              QStringLiteral("/run/lock")};
    QString name = devicePath(portName);
    if (name.startsWith(QLatin1String("/dev/")))
        name = name.mid(5);
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    for (const QString& folder : folders) {
        const QLockFile lock(folder + QStringLiteral("/LCK..") + name);
        PortHolder holder;
        QString host;
        if (lock.getLockInfo(&holder.process, &host, &holder.program) && isRunning(holder.process))
            return holder;
    }
    return {};
}

QString describePortError(const QString& portName)
{
    switch (examinePort(portName)) {
    case PortProblem::NoPort:
        return PortError::tr("No port is selected. Plug in the hand's adapter and click Refresh.");
    case PortProblem::NotThere:
        return PortError::tr(
            "The port is no longer available. Plug the adapter in again and click Refresh.");
    case PortProblem::NoPermission:
        return PortError::tr(
                   "You do not have permission to use this port. It belongs to the group \"%1\". "
                   "To join that group, run\n    sudo usermod -aG %1 $USER\nand log in again.")
            .arg(QFileInfo(devicePath(portName)).group());
    case PortProblem::InUse:
        return PortError::tr(
            "Another program is using this port. Close it and try again. (ModemManager may use a "
            "new adapter for a few seconds.)");
    case PortProblem::None:
    case PortProblem::Unknown:
        break;
    }
    return {};
}

} // namespace vanto
