#pragma once

/// Declares an adapter's overrides of all operations on a hand. The class needs the short integer
/// type names u8, u16, u32 and s16.
#define VANTO_OVERRIDE_OPERATIONS                                                                  \
    u8 getProtocolVersion(u8 node, u8* major, u8* minor) override;                                 \
    u8 getFirmwareVersion(u8 node, u8* major, u8* minor, u16* revision) override;                  \
    u8 getHardwareVersion(u8 node, u8* major, u8* minor, u16* revision) override;                  \
    u8 getCaliData(u8 node, u16* endPositions, u16* startPositions, u8 fingerCount,                \
                   u16* thumbRootPositions, u8 thumbRootCount) override;                           \
    u8 getFingerPID(u8 node, u8 finger, float* p, float* i, float* d, float* g) override;          \
    u8 getFingerCurrentLimit(u8 node, u8 finger, u16* limit) override;                             \
    u8 getFingerCurrent(u8 node, u8 finger, u16* current) override;                                \
    u8 getFingerForceLimit(u8 node, u8 finger, u16* limit) override;                               \
    u8 getFingerForce(u8 node, u8 finger, u16* force, u8 count) override;                          \
    u8 getFingerPosLimit(u8 node, u8 finger, u16* lower, u16* upper) override;                     \
    u8 getFingerPosAbs(u8 node, u8 finger, u16* target, u16* current) override;                    \
    u8 getFingerPos(u8 node, u8 finger, u16* target, u16* current) override;                       \
    u8 getFingerAngle(u8 node, u8 finger, s16* target, s16* current) override;                     \
    u8 getThumbRootPos(u8 node, u16* position, u8* index) override;                                \
    u8 getFingerPosAbsAll(u8 node, u16* targets, u16* currents, u8 count) override;                \
    u8 getFingerPosAll(u8 node, u16* targets, u16* currents, u8 count) override;                   \
    u8 getFingerAngleAll(u8 node, s16* targets, s16* currents, u8 count) override;                 \
    u8 getSelfTestLevel(u8 node, u8* level) override;                                              \
    u8 getBeepSwitch(u8 node, u8* on) override;                                                    \
    u8 getButtonPressedCnt(u8 node, u8* count) override;                                           \
    u8 getUID(u8 node, u32* word0, u32* word1, u32* word2) override;                               \
    u8 getBatteryVoltage(u8 node, u16* voltage) override;                                          \
    u8 getUsageStat(u8 node, u32* total, u32* perFinger, u8 count) override;                       \
    u8 reset(u8 node, u8 mode) override;                                                           \
    u8 powerOff(u8 node) override;                                                                 \
    u8 setID(u8 node, u8 newNode) override;                                                        \
    u8 calibrate(u8 node, u16 key) override;                                                       \
    u8 setCaliData(u8 node, const u16* endPositions, const u16* startPositions,                    \
                   const u16* thumbRootPositions, u16 fingerCount, u16 thumbRootCount) override;   \
    u8 setFingerPID(u8 node, u8 finger, float p, float i, float d, float g) override;              \
    u8 setFingerCurrentLimit(u8 node, u8 finger, u16 limit) override;                              \
    u8 setFingerForceLimit(u8 node, u8 finger, u16 limit) override;                                \
    u8 setFingerPosLimit(u8 node, u8 finger, u16 lower, u16 upper) override;                       \
    u8 fingerStart(u8 node, u8 mask) override;                                                     \
    u8 fingerStop(u8 node, u8 mask) override;                                                      \
    u8 setFingerPosAbs(u8 node, u8 finger, u16 position, u8 speed) override;                       \
    u8 setFingerPos(u8 node, u8 finger, u16 position, u8 speed) override;                          \
    u8 setFingerAngle(u8 node, u8 finger, s16 angle, u8 speed) override;                           \
    u8 setFingerPosAbsAll(u8 node, const u16* positions, const u8* speeds, u8 count) override;     \
    u8 setFingerPosAll(u8 node, const u16* positions, const u8* speeds, u8 count) override;        \
    u8 setFingerAngleAll(u8 node, const s16* angles, const u8* speeds, u8 count) override;         \
    u8 setSelfTestLevel(u8 node, u8 level) override;                                               \
    u8 setBeepSwitch(u8 node, u8 on) override;                                                     \
    u8 beep(u8 node, u16 duration) override;                                                       \
    u8 setButtonPressedCnt(u8 node, u8 count) override;                                            \
    u8 startInit(u8 node) override;
