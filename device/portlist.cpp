#include "portlist.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSerialPortInfo>

#include <algorithm>

namespace vanto
{

namespace
{
QString portDetails(const QSerialPortInfo& info)
{
    QStringList lines;
    if (!info.manufacturer().isEmpty() || !info.description().isEmpty())
        lines.append((info.manufacturer() + QLatin1Char(' ') + info.description()).trimmed());
    if (!info.serialNumber().isEmpty())
        lines.append(
            QCoreApplication::translate("PortList", "Serial number %1").arg(info.serialNumber()));
    if (info.hasVendorIdentifier() && info.hasProductIdentifier())
        lines.append(QStringLiteral("VID:PID %1:%2")
                         .arg(info.vendorIdentifier(), 4, 16, QLatin1Char('0'))
                         .arg(info.productIdentifier(), 4, 16, QLatin1Char('0'))
                         .toUpper());
    return lines.join(QLatin1Char('\n'));
}

std::optional<AdapterId> adapterOf(const QSerialPortInfo& info)
{
    if (!info.hasVendorIdentifier() || !info.hasProductIdentifier())
        return {};
    return AdapterId{info.vendorIdentifier(), info.productIdentifier(), info.serialNumber()};
}
} // namespace

QList<PortEntry> availablePorts()
{
    QList<PortEntry> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        ports.append({info.portName(), info.description(), portDetails(info), adapterOf(info)});
    for (PortEntry& port : ports)
        port.isUnique = std::ranges::count(ports, port.adapter, &PortEntry::adapter) == 1;
    for (const QString& path : addedPorts())
        ports.append({path, QCoreApplication::translate("PortList", "added by VANTO_PORTS")});
    return ports;
}

QStringList addedPorts()
{
    return qEnvironmentVariable("VANTO_PORTS").split(QLatin1Char(':'), Qt::SkipEmptyParts);
}

bool canComeBack(const PortEntry& lost)
{
    return !lost.name.startsWith(QLatin1String("/dev/pts/")) &&
           !lost.name.startsWith(QLatin1String("pts/"));
}

bool isSameAdapter(const PortEntry& known, const QList<PortEntry>& ports)
{
    const auto found = std::ranges::find(ports, known.name, &PortEntry::name);
    return found != ports.end() && found->adapter == known.adapter;
}

const PortEntry* findAgain(const PortEntry& lost, const QList<PortEntry>& ports)
{
    const auto sameAdapter = [&lost](const PortEntry& port) {
        return port.adapter == lost.adapter;
    };
    const bool byNumber = lost.adapter && lost.isUnique && !lost.adapter->serialNumber.isEmpty();
    const bool unique = std::ranges::count_if(ports, sameAdapter) == 1;
    const auto found = std::ranges::find_if(ports, [&](const PortEntry& port) {
        if (!lost.adapter)
            return port.name == lost.name && !port.adapter &&
                   (!port.name.startsWith(QLatin1Char('/')) || QFileInfo::exists(port.name));
        return unique && sameAdapter(port) && (byNumber || port.name == lost.name);
    });
    return found == ports.end() ? nullptr : &*found;
}

} // namespace vanto
