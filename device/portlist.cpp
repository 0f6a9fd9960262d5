#include "portlist.h"

#include <QCoreApplication>
#include <QSerialPortInfo>

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
} // namespace

QList<PortEntry> availablePorts()
{
    QList<PortEntry> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        ports.append({info.portName(), info.description(), portDetails(info)});
    const auto added =
        qEnvironmentVariable("VANTO_PORTS").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString& path : added)
        ports.append({path, QCoreApplication::translate("PortList", "added by VANTO_PORTS")});
    return ports;
}

} // namespace vanto
