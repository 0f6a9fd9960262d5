#pragma once

#include "hand.h"
#include "modbusframe.h"

#include <cstdint>

namespace vanto::simulator
{

/// Executes one Modbus request. The reply is an exception if the hand refuses it.
ModbusFrame executeModbus(Hand& hand, const ModbusFrame& request, TimePoint now);

/// Returns the exception that refuses the request, and stores the reason in the error register.
ModbusFrame refuseModbus(Hand& hand, const ModbusFrame& request, std::uint8_t error);

} // namespace vanto::simulator
