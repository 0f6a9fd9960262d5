#pragma once

#include "resultcode.h"

#include <cstdint>
#include <memory>
#include <mutex>

namespace vanto
{

/// Numbers of the device protocols, as they appear in messages to the user.
enum PROTOCOL_TYPE : std::uint8_t {
    PROTOCOL_TYPE_MODBUS_RTU = 1,
    PROTOCOL_TYPE_SERIALCTRL = 2,
};

/// Supported major versions of the device protocols.
inline constexpr int ModbusMajorVersion = 1;
inline constexpr int SerialCtrlMajorVersion = 3;

/// Bits per second of both device protocols and of the boot loader.
inline constexpr std::uint32_t BaudRate = 115200;

inline constexpr double HundredthsPerDegree = 100; ///< the unit of all angles

/// The operations of a hand, independent of its device protocol.
///
/// `node` is the hand's address on the bus, `finger` an index 0..5 (Thumb, Index, Middle, Third,
/// Little, Thumb root); arrays are indexed by finger. Logical positions span 0..65535, angles are
/// hundredths of a degree, speeds 0..255. Currents, forces, voltages and absolute positions are in
/// the device's own units.
///
/// Every device operation processes events until the hand answers or a time-out elapses, and
/// returns a result code (see ResultCode). On failure the outputs are undefined. Only one operation
/// may run at a time; see Conversation.
class VantoProtocol
{
public:
    VantoProtocol() = default;
    virtual ~VantoProtocol();
    VantoProtocol(const VantoProtocol&) = delete;
    VantoProtocol& operator=(const VantoProtocol&) = delete;

    /// Returns the shared adapter for a protocol and major version, or null if it is not supported.
    /// Any minor version is accepted. Thread-safe.
    static std::shared_ptr<VantoProtocol>
    getProtocolInstance(PROTOCOL_TYPE type, unsigned char major, unsigned char minor);

    virtual PROTOCOL_TYPE protocolType() const = 0;
    virtual const char* protocolName() const = 0;
    virtual int protocolVersion() const = 0;

    /// Opens the named port (UTF-8). Unlike the operations below, returns true on success.
    virtual bool connect(const char* portName, std::uint32_t baudRate) = 0;
    virtual void disconnect() = 0;

    /// The device's own error byte ("sub error") for the most recent exchange with the node.
    virtual std::uint8_t getNodeError(std::uint8_t node) = 0;

    virtual std::uint8_t getProtocolVersion(std::uint8_t node, std::uint8_t* major,
                                            std::uint8_t* minor) = 0;
    virtual std::uint8_t getFirmwareVersion(std::uint8_t node, std::uint8_t* major,
                                            std::uint8_t* minor, std::uint16_t* revision) = 0;
    virtual std::uint8_t getHardwareVersion(std::uint8_t node, std::uint8_t* major,
                                            std::uint8_t* minor, std::uint16_t* revision) = 0;
    virtual std::uint8_t getCaliData(std::uint8_t node, std::uint16_t* endPositions,
                                     std::uint16_t* startPositions, std::uint8_t fingerCount,
                                     std::uint16_t* thumbRootPositions,
                                     std::uint8_t thumbRootCount) = 0;
    virtual std::uint8_t getFingerPID(std::uint8_t node, std::uint8_t finger, float* p, float* i,
                                      float* d, float* g) = 0;
    virtual std::uint8_t getFingerCurrentLimit(std::uint8_t node, std::uint8_t finger,
                                               std::uint16_t* limit) = 0;
    virtual std::uint8_t getFingerCurrent(std::uint8_t node, std::uint8_t finger,
                                          std::uint16_t* current) = 0;
    virtual std::uint8_t getFingerForceLimit(std::uint8_t node, std::uint8_t finger,
                                             std::uint16_t* limit) = 0;
    /// Reads `count` force values of one finger.
    virtual std::uint8_t getFingerForce(std::uint8_t node, std::uint8_t finger,
                                        std::uint16_t* force, std::uint8_t count) = 0;
    virtual std::uint8_t getFingerPosLimit(std::uint8_t node, std::uint8_t finger,
                                           std::uint16_t* lower, std::uint16_t* upper) = 0;
    virtual std::uint8_t getFingerPosAbs(std::uint8_t node, std::uint8_t finger,
                                         std::uint16_t* target, std::uint16_t* current) = 0;
    virtual std::uint8_t getFingerPos(std::uint8_t node, std::uint8_t finger, std::uint16_t* target,
                                      std::uint16_t* current) = 0;
    virtual std::uint8_t getFingerAngle(std::uint8_t node, std::uint8_t finger,
                                        std::int16_t* target, std::int16_t* current) = 0;
    /// `index` is the number of the preset that the thumb root is at.
    virtual std::uint8_t getThumbRootPos(std::uint8_t node, std::uint16_t* position,
                                         std::uint8_t* index) = 0;
    virtual std::uint8_t getFingerPosAbsAll(std::uint8_t node, std::uint16_t* targets,
                                            std::uint16_t* currents, std::uint8_t count) = 0;
    virtual std::uint8_t getFingerPosAll(std::uint8_t node, std::uint16_t* targets,
                                         std::uint16_t* currents, std::uint8_t count) = 0;
    virtual std::uint8_t getFingerAngleAll(std::uint8_t node, std::int16_t* targets,
                                           std::int16_t* currents, std::uint8_t count) = 0;
    virtual std::uint8_t getSelfTestLevel(std::uint8_t node, std::uint8_t* level) = 0;
    virtual std::uint8_t getBeepSwitch(std::uint8_t node, std::uint8_t* on) = 0;
    virtual std::uint8_t getButtonPressedCnt(std::uint8_t node, std::uint8_t* count) = 0;
    virtual std::uint8_t getUID(std::uint8_t node, std::uint32_t* word0, std::uint32_t* word1,
                                std::uint32_t* word2) = 0;
    virtual std::uint8_t getBatteryVoltage(std::uint8_t node, std::uint16_t* voltage) = 0;
    /// `total` receives one value, `perFinger` always six, whatever `count` (0..6) is.
    virtual std::uint8_t getUsageStat(std::uint8_t node, std::uint32_t* total,
                                      std::uint32_t* perFinger, std::uint8_t count) = 0;

    virtual std::uint8_t reset(std::uint8_t node, std::uint8_t mode) = 0;
    virtual std::uint8_t powerOff(std::uint8_t node) = 0;
    virtual std::uint8_t setID(std::uint8_t node, std::uint8_t newNode) = 0;
    virtual std::uint8_t calibrate(std::uint8_t node, std::uint16_t key) = 0;
    virtual std::uint8_t setCaliData(std::uint8_t node, const std::uint16_t* endPositions,
                                     const std::uint16_t* startPositions,
                                     const std::uint16_t* thumbRootPositions,
                                     std::uint16_t fingerCount, std::uint16_t thumbRootCount) = 0;
    virtual std::uint8_t setFingerPID(std::uint8_t node, std::uint8_t finger, float p, float i,
                                      float d, float g) = 0;
    virtual std::uint8_t setFingerCurrentLimit(std::uint8_t node, std::uint8_t finger,
                                               std::uint16_t limit) = 0;
    virtual std::uint8_t setFingerForceLimit(std::uint8_t node, std::uint8_t finger,
                                             std::uint16_t limit) = 0;
    virtual std::uint8_t setFingerPosLimit(std::uint8_t node, std::uint8_t finger,
                                           std::uint16_t lower, std::uint16_t upper) = 0;
    /// Bit n of a mask stands for finger n.
    virtual std::uint8_t fingerStart(std::uint8_t node, std::uint8_t mask) = 0;
    virtual std::uint8_t fingerStop(std::uint8_t node, std::uint8_t mask) = 0;
    virtual std::uint8_t setFingerPosAbs(std::uint8_t node, std::uint8_t finger,
                                         std::uint16_t position, std::uint8_t speed) = 0;
    virtual std::uint8_t setFingerPos(std::uint8_t node, std::uint8_t finger,
                                      std::uint16_t position, std::uint8_t speed) = 0;
    virtual std::uint8_t setFingerAngle(std::uint8_t node, std::uint8_t finger, std::int16_t angle,
                                        std::uint8_t speed) = 0;
    virtual std::uint8_t setFingerPosAbsAll(std::uint8_t node, const std::uint16_t* positions,
                                            const std::uint8_t* speeds, std::uint8_t count) = 0;
    virtual std::uint8_t setFingerPosAll(std::uint8_t node, const std::uint16_t* positions,
                                         const std::uint8_t* speeds, std::uint8_t count) = 0;
    virtual std::uint8_t setFingerAngleAll(std::uint8_t node, const std::int16_t* angles,
                                           const std::uint8_t* speeds, std::uint8_t count) = 0;
    virtual std::uint8_t setSelfTestLevel(std::uint8_t node, std::uint8_t level) = 0;
    virtual std::uint8_t setBeepSwitch(std::uint8_t node, std::uint8_t on) = 0;
    /// `duration` in milliseconds.
    virtual std::uint8_t beep(std::uint8_t node, std::uint16_t duration) = 0;
    virtual std::uint8_t setButtonPressedCnt(std::uint8_t node, std::uint8_t count) = 0;
    virtual std::uint8_t startInit(std::uint8_t node) = 0;

private:
    static std::mutex _mutex; ///< guards the creation of adapters
};

} // namespace vanto
