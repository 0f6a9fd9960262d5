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

/// The adapter for Modbus RTU hands, register map version 1. The node is the slave address. Every
/// operation reads or writes holding registers and ends at the first failure. Outputs are written
/// when all reads have succeeded; only getFingerPID() keeps gains that it read before a failure.
///
/// Limits and presets used for conversions are read once from each node and cached for the lifetime
/// of the adapter. Only setCaliData() clears those of its node, whatever its result is.
class ModBusRTUProtocolV1 : public VantoProtocol
{
public:
    using u8 = std::uint8_t;
    using u16 = std::uint16_t;
    using u32 = std::uint32_t;
    using s16 = std::int16_t;

    /// Results of this adapter, besides those common to all adapters.
    static constexpr u8 NoAnswer = 0x10; ///< not connected, refused with an exception, aborted
    static constexpr u8 Failed = 0xFF;   ///< read or write failed, or no such register

    ModBusRTUProtocolV1();

    PROTOCOL_TYPE protocolType() const override { return PROTOCOL_TYPE_MODBUS_RTU; }
    const char* protocolName() const override { return "ModBus-RTU"; }
    int protocolVersion() const override { return ModbusMajorVersion; }

    bool connect(const char* portName, std::uint32_t baudRate) override;
    void disconnect() override;

    /// Unlike the SerialCtrl adapter, sends a request of its own; returns Failed if that fails.
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
    PerNode<u16, PresetCount> m_thumbRootPresets{}; ///< first one 0: not known
};

} // namespace vanto
