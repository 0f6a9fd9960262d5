#pragma once

#include <QLoggingCategory>

namespace vanto
{

/// Logs each frame with its time, direction and, for a reply, error. Costs nothing while the
/// logging category vanto.modbus is disabled, as it is by default.
namespace ModbusTrace
{
const QLoggingCategory& log();
void request(std::uint8_t slave, int function, const QByteArray& data);
/// `error` is a QModbusDevice::Error. Empty data means that there was no reply.
void reply(std::uint8_t slave, int function, const QByteArray& data, int error);
} // namespace ModbusTrace

} // namespace vanto
