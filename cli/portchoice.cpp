#include "portchoice.h"

#include "porterror.h"

namespace vanto
{

namespace
{
constexpr QLatin1String UsbPrefix("usb:");

QString listOf(const QList<PortEntry>& ports)
{
    QStringList names;
    for (const PortEntry& port : ports)
        names.append(port.name);
    return names.join(QLatin1String(", "));
}

PortChoice chooseOnly(const QList<PortEntry>& ports)
{
    if (ports.size() == 1)
        return {ports.constFirst().name, {}};
    if (ports.isEmpty())
        return {{}, QStringLiteral("There is no serial port."), ExitStatus::PortNotOpened};
    return {
        {},
        QStringLiteral("There are several ports; choose one with --port: %1.").arg(listOf(ports)),
        ExitStatus::Usage};
}

PortChoice chooseUsb(const QString& serialNumber, const QList<PortEntry>& ports)
{
    QList<PortEntry> found;
    for (const PortEntry& port : ports)
        if (port.adapter && port.adapter->serialNumber == serialNumber)
            found.append(port);
    if (found.size() == 1)
        return {found.constFirst().name, {}};
    if (found.isEmpty())
        return {{},
                QStringLiteral("No adapter with the serial number '%1' is plugged in.")
                    .arg(serialNumber),
                ExitStatus::PortNotOpened};
    return {{},
            QStringLiteral("Several adapters have the serial number '%1': %2.")
                .arg(serialNumber, listOf(found)),
            ExitStatus::Usage};
}
} // namespace

PortChoice choosePort(const QString& given)
{
    if (given.isEmpty())
        return chooseOnly(availablePorts());
    if (given.startsWith(UsbPrefix))
        return chooseUsb(given.mid(UsbPrefix.size()), availablePorts());
    return {given, {}};
}

QString describePortProblem(const QString& port)
{
    switch (examinePort(port)) {
    case PortProblem::NotThere:
        return QStringLiteral("There is no such port.");
    case PortProblem::InUse:
        if (const auto holder = findPortHolder(port))
            return QStringLiteral("The port is in use by %1 (process %2).")
                .arg(holder->program.isEmpty() ? QStringLiteral("another program")
                                               : holder->program)
                .arg(holder->process);
        break;
    default:
        break;
    }
    return describePortError(port).simplified();
}

} // namespace vanto
