#pragma once

#include "vantoserialapi.h"

namespace vanto
{

// VantoSerialAPI, command set: one function for each command of the hand. Each sends one request
// and waits for its reply with the time-out of the context. Outputs are written only if the result
// is HAND_SUCCESS; null outputs are skipped. `node` HAND_ANY_NODE accepts a reply from any node. A
// reply that is shorter than the layout of the command, or echoes another finger, gives
// HAND_BAD_ARGUMENT. With HAND_REFUSED, `subError` (may be null) receives the hand's error number.

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using s16 = std::int16_t;

// Reading
u32 HAND_GetProtocolVersion(HAND_Context*, u8 node, u8* major, u8* minor, u8* subError);
u32 HAND_GetFirmwareVersion(HAND_Context*, u8 node, u8* major, u8* minor, u16* revision,
                            u8* subError);
u32 HAND_GetHardwareVersion(HAND_Context*, u8 node, u8* major, u8* minor, u16* revision,
                            u8* subError);
u32 HAND_GetCaliData(HAND_Context*, u8 node, u16* firstRange, u16* secondRange, u8 fingerCount,
                     u16* thumbRoot, u8 thumbRootCount, u8* subError);
u32 HAND_GetFingerPID(HAND_Context*, u8 node, u8 finger, float* p, float* i, float* d, float* g,
                      u8* subError);
u32 HAND_GetFingerCurrentLimit(HAND_Context*, u8 node, u8 finger, u16* limit, u8* subError);
u32 HAND_GetFingerCurrent(HAND_Context*, u8 node, u8 finger, u16* current, u8* subError);
u32 HAND_GetFingerForceLimit(HAND_Context*, u8 node, u8 finger, u16* limit, u8* subError);
/// At most 16 values fit into a reply.
u32 HAND_GetFingerForce(HAND_Context*, u8 node, u8 finger, u16* forces, u8 count, u8* subError);
u32 HAND_GetFingerPosLimit(HAND_Context*, u8 node, u8 finger, u16* lower, u16* upper, u8* subError);
u32 HAND_GetFingerPosAbs(HAND_Context*, u8 node, u8 finger, u16* target, u16* current,
                         u8* subError);
u32 HAND_GetFingerPos(HAND_Context*, u8 node, u8 finger, u16* target, u16* current, u8* subError);
u32 HAND_GetFingerAngle(HAND_Context*, u8 node, u8 finger, s16* target, s16* current, u8* subError);
u32 HAND_GetThumbRootPos(HAND_Context*, u8 node, u16* position, u8* index, u8* subError);
u32 HAND_GetFingerPosAbsAll(HAND_Context*, u8 node, u16* targets, u16* currents, u8 count,
                            u8* subError);
u32 HAND_GetFingerPosAll(HAND_Context*, u8 node, u16* targets, u16* currents, u8 count,
                         u8* subError);
u32 HAND_GetFingerAngleAll(HAND_Context*, u8 node, s16* targets, s16* currents, u8 count,
                           u8* subError);
u32 HAND_GetSelfTestLevel(HAND_Context*, u8 node, u8* level, u8* subError);
u32 HAND_GetBeepSwitch(HAND_Context*, u8 node, u8* on, u8* subError);
u32 HAND_GetButtonPressedCnt(HAND_Context*, u8 node, u8* count, u8* subError);
u32 HAND_GetUID(HAND_Context*, u8 node, u32* word0, u32* word1, u32* word2, u8* subError);
u32 HAND_GetBatteryVoltage(HAND_Context*, u8 node, u16* voltage, u8* subError);
/// `perFinger` receives six values whatever `count` (0..6) is.
u32 HAND_GetUsageStat(HAND_Context*, u8 node, u32* total, u32* perFinger, u8 count, u8* subError);

// Writing and actions; a payload in their reply is ignored
u32 HAND_Reset(HAND_Context*, u8 node, u8 mode, u8* subError);
u32 HAND_PowerOff(HAND_Context*, u8 node, u8* subError);
u32 HAND_SetID(HAND_Context*, u8 node, u8 newNode, u8* subError);
u32 HAND_Calibrate(HAND_Context*, u8 node, u16 key, u8* subError);
/// The counts are checked in full width: more than 63 payload bytes give HAND_REQUEST_TOO_LONG.
u32 HAND_SetCaliData(HAND_Context*, u8 node, const u16* firstRange, const u16* secondRange,
                     u16 fingerCount, const u16* thumbRoot, u16 thumbRootCount, u8* subError);
u32 HAND_SetFingerPID(HAND_Context*, u8 node, u8 finger, float p, float i, float d, float g,
                      u8* subError);
u32 HAND_SetFingerCurrentLimit(HAND_Context*, u8 node, u8 finger, u16 limit, u8* subError);
u32 HAND_SetFingerForceLimit(HAND_Context*, u8 node, u8 finger, u16 limit, u8* subError);
u32 HAND_SetFingerPosLimit(HAND_Context*, u8 node, u8 finger, u16 lower, u16 upper, u8* subError);
/// Bit n of a mask stands for finger n.
u32 HAND_FingerStart(HAND_Context*, u8 node, u8 mask, u8* subError);
u32 HAND_FingerStop(HAND_Context*, u8 node, u8 mask, u8* subError);
u32 HAND_SetFingerPosAbs(HAND_Context*, u8 node, u8 finger, u16 position, u8 speed, u8* subError);
u32 HAND_SetFingerPos(HAND_Context*, u8 node, u8 finger, u16 position, u8 speed, u8* subError);
u32 HAND_SetFingerAngle(HAND_Context*, u8 node, u8 finger, s16 angle, u8 speed, u8* subError);
/// More than 6 fingers give HAND_BAD_ARGUMENT before anything else is checked.
u32 HAND_SetFingerPosAbsAll(HAND_Context*, u8 node, const u16* positions, const u8* speeds,
                            u8 count, u8* subError);
u32 HAND_SetFingerPosAll(HAND_Context*, u8 node, const u16* positions, const u8* speeds, u8 count,
                         u8* subError);
u32 HAND_SetFingerAngleAll(HAND_Context*, u8 node, const s16* angles, const u8* speeds, u8 count,
                           u8* subError);
/// Sends `length` bytes of `buffer` and overwrites them with the reply's payload. `replyLength`:
/// capacity of `buffer` in, received length out.
u32 HAND_SetCustom(HAND_Context*, u8 node, u8* buffer, u8 length, u8* replyLength, u8* subError);
u32 HAND_SetSelfTestLevel(HAND_Context*, u8 node, u8 level, u8* subError);
u32 HAND_SetBeepSwitch(HAND_Context*, u8 node, u8 on, u8* subError);
/// `duration` in milliseconds.
u32 HAND_Beep(HAND_Context*, u8 node, u16 duration, u8* subError);
u32 HAND_SetButtonPressedCnt(HAND_Context*, u8 node, u8 count, u8* subError);
u32 HAND_StartInit(HAND_Context*, u8 node, u8* subError);

} // namespace vanto
