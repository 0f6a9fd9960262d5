#pragma once

#include <QByteArray>

#include <cstdint>

namespace vanto
{

/// Keeps each frame for support reports and, if the logging category vanto.modbus is enabled, logs
/// it with its time, direction and, for a reply, error. Repetitions of a read and damaged frames
/// stay inside the Qt client; of them only the error is seen.
namespace ModbusTrace
{
void request(std::uint8_t slave, int function, const QByteArray& data);
/// `error` is a QModbusDevice::Error, `result` the client's. Empty data means that there was no
/// reply.
void reply(std::uint8_t slave, int function, const QByteArray& data, int error,
           std::uint8_t result);
} // namespace ModbusTrace

} // namespace vanto
