#pragma once

#include "fingers.h"
#include "modbusrtuclient.h"
#include "operationoverrides.h"
#include "positionscale.h"
#include "vantoprotocol.h"

#include <array>
#include <vector>

namespace vanto
{

class RegisterAccess;

/// The adapter for hands that speak Modbus-RTU, register map version 1. The node is the slave's
/// address; every operation is one or more reads or writes of holding registers, of which the
/// first failure ends it. Outputs are written when all reads have succeeded; only getFingerPID()
/// keeps the gains that it has read before a failure.
///
/// Limits and presets that an operation converts by are read once from each node and then kept for
/// the life of the adapter, whatever is written to the hand.
class ModBusRTUProtocolV1 : public VantoProtocol
{
public:
    using u8 = std::uint8_t;
    using u16 = std::uint16_t;
    using u32 = std::uint32_t;
    using s16 = std::int16_t;

    /// Results of this adapter, besides those that are the same for all.
    static constexpr u8 NoAnswer = 0x10; ///< not connected, refused by an exception, aborted
    static constexpr u8 Failed = 0xFF;   ///< reading or writing failed, or there is no register

    ModBusRTUProtocolV1();

    PROTOCOL_TYPE protocolType() const override { return PROTOCOL_TYPE_MODBUS_RTU; }
    const char* protocolName() const override { return "ModBus-RTU"; }
    int protocolVersion() const override { return ModbusMajorVersion; }

    bool connect(const char* portName, std::uint32_t baudRate) override;
    void disconnect() override;

    /// Unlike the other adapter's, a request of its own; Failed when it fails.
    u8 getNodeError(u8 node) override;
    static u8 translateError(ModBusRTUClient::Error error);

    VANTO_OVERRIDE_OPERATIONS

private:
    static constexpr std::size_t NodeCount = 256;
    static constexpr std::size_t PresetCount = 3;
    template<class T, std::size_t Count>
    using PerNode = std::array<std::array<T, Count>, NodeCount>;

    RegisterAccess access(u8 node) const;
    PositionLimits limits(RegisterAccess& requests, u8 node, u8 finger);
    std::vector<PositionLimits> allLimits(RegisterAccess& requests, u8 node, u8 count);

    std::shared_ptr<ModBusRTUClient> m_client;
    PerNode<u16, FingerCount> m_lowerLimits{};      ///< 0: not known
    PerNode<u16, FingerCount> m_upperLimits{};      ///< 0: not known
    PerNode<u16, PresetCount> m_thumbRootPresets{}; ///< the first being 0: not known
};

} // namespace vanto
