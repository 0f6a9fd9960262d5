#pragma once

#include "hand.h"
#include "modbusframe.h"

namespace vanto::simulator
{

// Lets the hand carry out one Modbus request. What is refused comes back as an exception.
ModbusFrame modbusAnswer(Hand& hand, const ModbusFrame& request, Moment now);

// The exception that refuses the request; the hand's error register tells the reason.
ModbusFrame modbusRefusal(Hand& hand, const ModbusFrame& request, quint8 error);

} // namespace vanto::simulator
