#pragma once

#include "motion.h"

#include <array>
#include <cstdint>
#include <optional>

namespace vanto::simulator
{

constexpr std::size_t FingerCount = 6;
constexpr std::size_t ThumbRoot = 5;
constexpr std::size_t ForceFingerCount = 5; ///< the thumb root has no force sensor
constexpr std::size_t ThumbRootPresetCount = 3;
constexpr std::size_t ForcePointCount = 25;
constexpr std::uint8_t NoPreset = 255;

/// Why a hand refuses a request.
enum SubError : std::uint8_t {
    NoSubError = 0x00,
    UnknownCommand = 0x01,
    BadArgument = 0x02,
    NoForceSensing = 0x03,
    Refused = 0x21,
    AlreadyCalibrating = 0x22,
};

struct Version {
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    std::uint16_t revision = 0;
};

/// The factory configuration of a hand.
struct HandTraits {
    Version firmware{1, 4, 7};
    Version bootLoader{1, 2, 0};
    Version protocol{3, 1, 0};
    Version modbusProtocol{1, 0, 0};
    std::uint8_t hardwareType = 0x1B;
    std::uint8_t hardwareVersion = 0x01;
    bool forceSensing = true;
    std::uint16_t calibrationKey = 0x1A2B;
    double speedFactor = 1.0;
    bool appliesSpeedAtOnce = false; ///< a Modbus speed also to the motion under way
    bool latchesStop = false;        ///< stopped fingers ignore targets until a start
};

enum class Unit { Logical, Raw, Angle };

struct Finger {
    std::array<float, 4> pid{};     ///< P, I, D, G
    std::uint16_t currentLimit = 0; ///< mA
    std::uint16_t forceLimit = 0;   ///< mN
    Scale raw;                      ///< calibrated start and end
    FingerMotion motion;
    std::uint8_t nextSpeed = 255; ///< of the next motion, if speed and target are set separately
    std::optional<std::uint16_t> fixedCurrent;
    std::optional<std::uint16_t> fixedForce;
    std::uint32_t moves = 0;
};

/// The state of one hand, independent of the protocol.
class Hand
{
public:
    Hand(std::uint8_t nodeId, const HandTraits& handTraits);

    void moveTo(Unit unit, std::size_t finger, int value, std::uint8_t speed, TimePoint now);
    /// Sets the position at once, without motion.
    void placeAt(Unit unit, std::size_t finger, int value, TimePoint now);
    /// Sets the speed of the next motion, if speed and target are set separately.
    void setSpeed(std::size_t finger, std::uint8_t speed, TimePoint now);
    int target(Unit unit, std::size_t finger) const;
    int position(Unit unit, std::size_t finger, TimePoint now) const;
    std::uint16_t current(std::size_t finger, TimePoint now) const;
    std::uint16_t force(std::size_t finger, std::size_t point, TimePoint now) const;
    /// The index of the preset that the thumb root is at.
    std::uint8_t thumbRootPreset(TimePoint now) const;
    std::uint16_t rawPreset(std::size_t index) const;
    std::uint16_t logicalPreset(std::size_t index) const;
    void setLogicalPreset(std::size_t index, std::uint16_t logical);

    void stopMotion(TimePoint now);
    void startInit(TimePoint now);
    void powerCycle(TimePoint now);
    /// Sets the node id; the hand does not answer for the time of a reboot.
    void rebootWithId(std::uint8_t newId, TimePoint now);
    /// False while the hand is switched off or reboots.
    bool isListening(TimePoint now) const { return powered && now >= m_rebootedAt; }

    /// Reboots the hand into the calibrating state, which lasts until the next power cycle.
    SubError calibrate(std::uint16_t key, TimePoint now);
    bool isCalibrating(TimePoint now) const { return m_calibrating && isListening(now); }
    /// Number of confirmed stages of the current calibration.
    std::uint8_t calibrationStage() const { return m_stage; }
    /// Also called for presses of the hand's button. In the calibrating state the counts 1, 2 and
    /// 3, in this order, confirm the stages; 1 starts again, other counts confirm nothing.
    void setButtonCount(std::uint8_t count, TimePoint now);

    HandTraits traits;
    std::uint8_t id;
    bool powered = true;
    std::array<Finger, FingerCount> fingers;
    /// Raw positions. Over Modbus they are logical ones, which are finer; so they are not rounded.
    std::array<double, ThumbRootPresetCount> thumbRootPresets{600, 1900, 3300};
    std::array<std::uint32_t, 3> uid;
    std::uint16_t voltage = 7400; ///< mV
    std::uint32_t usage = 4200;   ///< minutes of operation
    std::uint8_t selfTestLevel = 2;
    std::uint8_t beepSwitch = 1;
    std::uint8_t buttonCount = 0;
    std::uint8_t error = 0;         ///< reason of the last Modbus refusal, or 0
    std::uint16_t beepDuration = 0; ///< ms, of the last beep
    std::uint32_t beeps = 0;
    std::uint32_t resets = 0;
    std::uint32_t inits = 0;
    std::uint32_t calibrations = 0;
    std::uint16_t rebootTime = 300; ///< ms

private:
    Scale scale(Unit unit, std::size_t finger) const;
    void storeCalibration();

    bool m_calibrating = false;
    std::uint8_t m_stage = 0;
    TimePoint m_rebootedAt{};
    std::uint16_t m_firstThumbRoot = 0; ///< raw position at the first stage
    std::uint16_t m_lastThumbRoot = 0;
    int m_measuredShift = 24; ///< change of the range by the next calibration, raw units
};

} // namespace vanto::simulator
