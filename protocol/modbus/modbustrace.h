#pragma once

#include <QLoggingCategory>

namespace vanto
{

/// Logs each frame with time, direction and, for a reply, the error. Costs nothing while the
/// category vanto.modbus is off, as it is unless somebody asks for it.
namespace ModbusTrace
{
const QLoggingCategory& log();
void request(std::uint8_t slave, int function, const QByteArray& data);
/// `error` is one of QModbusDevice::Error; without data there was no reply.
void reply(std::uint8_t slave, int function, const QByteArray& data, int error);
} // namespace ModbusTrace

} // namespace vanto
