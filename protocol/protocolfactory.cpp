#include "modbusrtuprotocolv1.h"
#include "serialprotocolv3.h"
#include "vantoprotocol.h"

#include <atomic>

namespace vanto
{

std::mutex VantoProtocol::_mutex;

namespace
{
using Slot = std::atomic<std::shared_ptr<VantoProtocol>>;

template<class Adapter>
std::shared_ptr<VantoProtocol> loadOrCreate(Slot& slot, std::mutex& mutex)
{
    if (auto adapter = slot.load())
        return adapter;
    const std::lock_guard lock(mutex);
    auto adapter = slot.load();
    if (!adapter) {
        adapter = std::make_shared<Adapter>();
        slot.store(adapter);
    }
    return adapter;
}
} // namespace

std::shared_ptr<VantoProtocol>
VantoProtocol::getProtocolInstance(PROTOCOL_TYPE type, unsigned char major, unsigned char /*minor*/)
{
    static Slot modbusSlot;
    static Slot serialCtrlSlot;
    if (type == PROTOCOL_TYPE_MODBUS_RTU && major == ModbusMajorVersion)
        return loadOrCreate<ModBusRTUProtocolV1>(modbusSlot, _mutex);
    if (type == PROTOCOL_TYPE_SERIALCTRL && major == SerialCtrlMajorVersion)
        return loadOrCreate<SerialProtocolV3>(serialCtrlSlot, _mutex);
    return {};
}

} // namespace vanto
