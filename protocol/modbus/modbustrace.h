#pragma once

#include <QLoggingCategory>
#include <QModbusPdu>

/// Logs each frame with time, direction and, for a reply, the error. Costs nothing while the
/// category vanto.modbus is off, as it is unless somebody asks for it.
namespace ModbusTrace
{
const QLoggingCategory& log();
void request(std::uint8_t slave, const QModbusPdu& pdu);
void reply(std::uint8_t slave, const QModbusPdu& pdu, int error);
} // namespace ModbusTrace
