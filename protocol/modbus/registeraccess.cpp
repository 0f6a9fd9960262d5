#include "registeraccess.h"

#include "modbusregisters.h"
#include "modbusrtuprotocolv1.h"
#include "positionscale.h"
#include "resultcode.h"

namespace vanto
{

bool RegisterAccess::succeeded() const
{
    return m_result == ResultCode::Success;
}

std::uint8_t RegisterAccess::result() const
{
    if (succeeded())
        for (const auto& write : m_outputs)
            write();
    return m_result;
}

QList<std::uint16_t> RegisterAccess::fetch(int address, std::uint16_t count)
{
    QList<std::uint16_t> values;
    if (!succeeded())
        return values;
    m_result = ModBusRTUProtocolV1::translateError(
        m_client->readRegisters(m_node, static_cast<std::uint16_t>(address), count, values));
    if (succeeded() && values.size() != count)
        m_result = ModBusRTUProtocolV1::Failed;
    return succeeded() ? values : QList<std::uint16_t>();
}

void RegisterAccess::send(int address, const QList<std::uint16_t>& values)
{
    if (!succeeded())
        return;
    m_result = ModBusRTUProtocolV1::translateError(
        m_client->writeRegisters(m_node, static_cast<std::uint16_t>(address), values));
}

void RegisterAccess::sendSpeeds(std::uint8_t firstFinger, const std::uint8_t* speeds,
                                std::uint8_t count)
{
    QList<std::uint16_t> scaled(count);
    std::transform(speeds, speeds + count, scaled.begin(), speedToRegister);
    send(Register::FingerSpeed + firstFinger, scaled);
}

} // namespace vanto
