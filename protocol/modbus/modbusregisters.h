#pragma once

#include <cstdint>

namespace vanto
{

/// Addresses of the hand's holding registers. Those named after a finger are the first of six, one
/// for each finger. Unless noted otherwise, a register holds one 16-bit integer.
namespace Register
{
enum Address : std::uint16_t {
    ProtocolVersion = 1000, ///< major in the high byte, minor in the low byte
    FirmwareVersion = 1001, ///< two registers: major and minor as above, revision
    HardwareVersion = 1003, ///< likewise
    NodeId = 1005,
    NodeError = 1006, ///< low byte
    BatteryVoltage = 1007,
    SelfTestLevel = 1008, ///< low byte
    BeepSwitch = 1009,    ///< low byte
    Beep = 1010,          ///< duration in ms
    ButtonCount = 1011,   ///< low byte
    Calibrate = 1012,     ///< key
    StartInit = 1013,     ///< always 1
    Reset = 1014,         ///< mode
    PowerOff = 1015,      ///< written without a value

    FingerUpperLimit = 1020, ///< raw position of logical position 65535
    FingerLowerLimit = 1030, ///< raw position of logical position 0
    ThumbRootPreset = 1040,  ///< three registers
    FingerP = 1045,          ///< gains in hundredths
    FingerI = 1055,
    FingerD = 1065,
    FingerG = 1075,
    FingerCurrentLimit = 1095,
    FingerCurrent = 1105,
    FingerForceLimit = 1115,

    FingerSpeed = 1125, ///< 0..65535
    FingerTargetPosition = 1135,
    FingerPosition = 1145,
    ThumbRootPosition = 1150,
    FingerTargetAngle = 1155, ///< two's complement
    FingerAngle = 1165,       ///< two's complement

    FingerForce = 1200, ///< a block of registers for each finger
};

inline constexpr int ForceBlockSize = 25;
inline constexpr std::uint16_t Start = 1; ///< value written to StartInit
} // namespace Register

} // namespace vanto
