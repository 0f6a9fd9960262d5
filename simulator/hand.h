#pragma once

#include "motion.h"

#include <array>
#include <optional>

namespace vanto::simulator
{

constexpr std::size_t fingerCount = 6;
constexpr std::size_t thumbRoot = 5;
constexpr std::size_t forceFingerCount = 5; // the thumb root has no force sensor
constexpr std::size_t thumbRootPresetCount = 3;
constexpr std::size_t forcePointCount = 25;
constexpr quint8 noPreset = 255;

// Why a hand refuses a request.
enum SubError : quint8 {
    NoSubError = 0x00,
    UnknownCommand = 0x01,
    BadArgument = 0x02,
    NoForceSensing = 0x03,
    Refused = 0x21,
    AlreadyCalibrating = 0x22,
};

struct Version {
    quint8 major = 0;
    quint8 minor = 0;
    quint16 revision = 0;
};

// What a hand is delivered with.
struct HandTraits {
    Version firmware{1, 4, 7};
    Version bootLoader{1, 2, 0};
    Version protocol{3, 1, 0};
    Version modbusProtocol{1, 0, 0};
    quint8 hardwareType = 0x1B;
    quint8 hardwareVersion = 0x01;
    bool forceSensing = true;
    quint16 calibrationKey = 0x1A2B;
    double speedFactor = 1.0;
};

enum class Unit { Logical, Raw, Angle };

struct Finger {
    std::array<float, 4> pid{}; // P, I, D, G
    quint16 currentLimit = 0;   // mA
    quint16 forceLimit = 0;     // mN
    Scale raw;                  // calibrated start and end
    FingerMotion motion;
    quint8 nextSpeed = 255; // of the next motion, where speed and target are set apart
    std::optional<quint16> pinnedCurrent;
    std::optional<quint16> pinnedForce;
    quint32 moves = 0;
};

// The state of one hand, whatever protocol it is asked through.
class Hand
{
public:
    Hand(quint8 nodeId, const HandTraits& delivered);

    void moveTo(Unit unit, std::size_t finger, int value, quint8 speed, Moment now);
    // Puts the finger there at once, at rest.
    void placeAt(Unit unit, std::size_t finger, int value, Moment now);
    int target(Unit unit, std::size_t finger) const;
    int position(Unit unit, std::size_t finger, Moment now) const;
    quint16 current(std::size_t finger, Moment now) const;
    quint16 force(std::size_t finger, std::size_t point, Moment now) const;
    quint8 thumbRootPreset(Moment now) const;

    void stopMotion(Moment now);
    void startInit(Moment now);
    void powerCycle(Moment now);
    // False while it is switched off or reboots.
    bool hears(Moment now) const { return powered && now >= m_rebootedAt; }

    // Reboots the hand into the calibrating state, which lasts until it is switched off and on.
    SubError calibrate(quint16 key, Moment now);
    bool isCalibrating(Moment now) const { return m_calibrating && hears(now); }
    // Stages of the present calibration that have been confirmed.
    quint8 calibrationStage() const { return m_stage; }
    // What a press of the hand's button does as well: in the calibrating state the counts 1, 2 and
    // 3, in this order, confirm its stages. 1 begins anew, any other count is no confirmation.
    void setButtonCount(quint8 count, Moment now);

    HandTraits traits;
    quint8 id;
    bool powered = true;
    std::array<Finger, fingerCount> fingers;
    std::array<quint16, thumbRootPresetCount> thumbRootPresets{600, 1900, 3300};
    std::array<quint32, 3> uid;
    quint16 voltage = 7400; // mV
    quint32 usage = 4200;   // minutes of operation
    quint8 selfTestLevel = 2;
    quint8 beepSwitch = 1;
    quint8 buttonCount = 0;
    quint8 error = 0;         // why the last Modbus request was refused, else 0
    quint16 beepDuration = 0; // ms, of the last beep
    quint32 beeps = 0;
    quint32 resets = 0;
    quint32 inits = 0;
    quint32 calibrations = 0;
    quint16 rebootTime = 300; // ms

private:
    Scale scale(Unit unit, std::size_t finger) const;
    void storeCalibration();

    bool m_calibrating = false;
    quint8 m_stage = 0;
    Moment m_rebootedAt{};
    quint16 m_firstThumbRoot = 0; // raw, where it stood at the first stage
    quint16 m_lastThumbRoot = 0;
    int m_measuredShift = 24; // raw units by which the next calibration differs
};

} // namespace vanto::simulator
