#pragma once

#include <QByteArray>

#include <optional>

namespace vanto::simulator
{

// Modbus RTU frame: node, function, data, CRC-16 (low byte first) of all before it. There is no
// start mark and no length: a request ends where its function says, and silence ends everything.
struct ModbusFrame {
    quint8 node = 0;
    quint8 function = 0;
    QByteArray data;
};

enum ModbusFunction : quint8 {
    ReadHoldingRegisters = 3,
    WriteSingleRegister = 6,
    WriteMultipleRegisters = 16,
};

enum ModbusException : quint8 {
    IllegalFunction = 1,
    ServerDeviceFailure = 4,
    LastModbusException = 11,
};

constexpr quint8 broadcastNode = 0; // all carry the request out, nobody answers
constexpr quint8 exceptionBit = 0x80;

QByteArray encode(const ModbusFrame& frame);

// Bytes of the request that starts like this; 0 as long as that cannot be told, nothing if no
// request starts so.
std::optional<qsizetype> modbusRequestLength(QByteArrayView start);
// Of a whole frame; its CRC is not looked at.
ModbusFrame decodeModbus(QByteArrayView bytes);

// Nothing if the request names none.
std::optional<quint16> firstRegister(const ModbusFrame& request);

} // namespace vanto::simulator
