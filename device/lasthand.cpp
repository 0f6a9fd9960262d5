#include "lasthand.h"

#include "settingsfile.h"
#include "statefile.h"

#include <QSettings>

namespace vanto
{

namespace
{
constexpr int HighestNode = 255;
constexpr QLatin1String PortKey("lastHand/port");
constexpr QLatin1String NodeKey("lastHand/node");
constexpr QLatin1String ProtocolKey("lastHand/protocol");
constexpr QLatin1String ModbusName("modbus");
constexpr QLatin1String SerialCtrlName("serialctrl");
} // namespace

LastHand LastHand::load()
{
    LastHand hand;
    if (!canBeSettingsFile(stateFilePath()))
        return hand;
    const QSettings settings(stateFilePath(), QSettings::IniFormat);
    bool isNumber = false;
    const int node = settings.value(NodeKey).toInt(&isNumber);
    if (settings.status() != QSettings::NoError || !isNumber || node < 0 || node > HighestNode)
        return hand;
    hand.port = settings.value(PortKey).toString();
    hand.node = node;
    const QString protocol = settings.value(ProtocolKey).toString();
    if (protocol == ModbusName)
        hand.protocol = PROTOCOL_TYPE_MODBUS_RTU;
    else if (protocol == SerialCtrlName || node == 0) // node 0 exists over SerialCtrl only
        hand.protocol = PROTOCOL_TYPE_SERIALCTRL;
    return hand;
}

void LastHand::save() const
{
    // A write waits for the disk, on the thread of the window.
    if (!canBeSettingsFile(stateFilePath()) || load() == *this)
        return;
    QSettings settings(stateFilePath(), QSettings::IniFormat);
    settings.setValue(PortKey, port);
    settings.setValue(NodeKey, node);
    settings.setValue(ProtocolKey,
                      protocol == PROTOCOL_TYPE_MODBUS_RTU ? ModbusName : SerialCtrlName);
}

} // namespace vanto
