#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace vanto::simulator
{

/// Modbus RTU frame: node, function, data, CRC-16 (low byte first) of the preceding bytes. It has
/// neither sync bytes nor a length: the function determines where a request ends.
struct ModbusFrame {
    std::uint8_t node = 0;
    std::uint8_t function = 0;
    QByteArray data;
};

enum ModbusFunction : std::uint8_t {
    ReadHoldingRegisters = 3,
    WriteSingleRegister = 6,
    WriteMultipleRegisters = 16,
};

enum ModbusException : std::uint8_t {
    IllegalFunction = 1,
    ServerDeviceFailure = 4,
    LastModbusException = 11,
};

constexpr std::uint8_t BroadcastNode = 0; ///< all hands execute the request, none answers
constexpr std::uint8_t ExceptionBit = 0x80;

QByteArray encode(const ModbusFrame& frame);

/// Returns the length of the request that begins with `start`: 0 while it is unknown, nullopt if no
/// request begins with these bytes.
std::optional<qsizetype> modbusRequestLength(QByteArrayView start);
/// Expects a complete frame; does not check the CRC.
ModbusFrame decodeModbus(QByteArrayView bytes);

/// Returns nullopt if the request has no register address.
std::optional<std::uint16_t> firstRegister(const ModbusFrame& request);

} // namespace vanto::simulator
