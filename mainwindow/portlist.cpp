#include "portlist.h"

#include <QCoreApplication>
#include <QSerialPortInfo>

QList<PortEntry> availablePorts()
{
    QList<PortEntry> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        ports.append({info.portName(), info.description()});
    const auto added =
        qEnvironmentVariable("VANTO_PORTS").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString& path : added)
        ports.append({path, QCoreApplication::translate("PortList", "added by VANTO_PORTS")});
    return ports;
}
