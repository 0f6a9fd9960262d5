#include "deviceentry.h"

#include <QRegularExpression>

namespace vanto
{

namespace
{
constexpr QLatin1String VersionMark("Protocol V");
}

QString DeviceEntry::text() const
{
    return QStringLiteral("0x%1 (%2 V%3.%4.%5, Protocol V%6.%7)")
        .arg(node, 2, 16, QLatin1Char('0'))
        .arg(protocolName)
        .arg(firmwareMajor)
        .arg(firmwareMinor)
        .arg(firmwareRevision)
        .arg(protocolMajor)
        .arg(protocolMinor);
}

bool DeviceEntry::isAnyNode() const
{
    return node == AnyNode && protocolName == QLatin1String("SerialCtrl");
}

EntryError parseDeviceEntry(const QString& text, DeviceAddress& address)
{
    if (text.contains(QLatin1String("SerialCtrl")))
        address.type = PROTOCOL_TYPE_SERIALCTRL;
    else if (text.contains(QLatin1String("ModBus-RTU")))
        address.type = PROTOCOL_TYPE_MODBUS_RTU;
    else
        return EntryError::UnknownProtocolType;

    const auto mark = text.indexOf(VersionMark);
    if (mark < 0)
        return EntryError::UnknownProtocolVersion;
    static const QRegularExpression version(QStringLiteral("^\\s*([+-]?\\d+)\\.\\s*([+-]?\\d+)"));
    const auto match = version.match(text.sliced(mark + VersionMark.size()));
    if (!match.hasMatch())
        return EntryError::UnknownDeviceName;
    address.major = static_cast<std::uint8_t>(match.captured(1).toInt());
    address.minor = static_cast<std::uint8_t>(match.captured(2).toInt());
    return EntryError::None;
}

} // namespace vanto
