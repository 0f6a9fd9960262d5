#include "hand.h"

#include <algorithm>
#include <cmath>

namespace vanto::simulator
{
namespace
{
/// Joint limits in hundredths of a degree, at logical positions 0 and 65535.
constexpr std::array<Scale, FingerCount> JointAngles{
    {{-1269, 3676}, {9100, 18091}, {8958, 17852}, {8947, 17904}, {8805, 17733}, {-200, 9200}}};

constexpr int MaxRaw = 65535;
constexpr double MaxLogical = 65535.0;
constexpr int PresetWindow = 1024; ///< raw units to either side
constexpr std::uint8_t InitSpeed = 255;
constexpr std::uint8_t CalibrationStages = 3;
constexpr std::uint32_t CalibrationBeeps = 8;

constexpr std::uint16_t MovingCurrentBase = 25; ///< mA
constexpr std::uint16_t MovingCurrentSpan = 36;
constexpr std::uint16_t IdleCurrentBase = 3;

Finger makeFinger(std::size_t index, const HandTraits& traits)
{
    const auto number = static_cast<int>(index);
    const auto step = static_cast<float>(index);
    Finger finger;
    finger.pid = {1.5F + 0.25F * step, 0.05F + 0.01F * step, 0.4F + 0.1F * step,
                  1.0F + 0.125F * step};
    finger.currentLimit = static_cast<std::uint16_t>(400 + 10 * number);
    finger.forceLimit = static_cast<std::uint16_t>(1000 + 50 * number);
    finger.raw = {400 + 13 * number, 3600 - 17 * number};
    finger.motion = FingerMotion(traits.speedFactor, traits.latchesStop);
    finger.moves = static_cast<std::uint32_t>(100 + 11 * number);
    return finger;
}
} // namespace

Hand::Hand(std::uint8_t nodeId, const HandTraits& handTraits)
    : traits(handTraits), id(nodeId), uid{0x00430020U + nodeId, 0x484E5601U, 0x20383550U}
{
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        fingers[finger] = makeFinger(finger, traits);
}

void Hand::moveTo(Unit unit, std::size_t finger, int value, std::uint8_t speed, TimePoint now)
{
    fingers[finger].motion.moveTo(scale(unit, finger).toLogical(value), speed, now);
    ++fingers[finger].moves;
}

void Hand::placeAt(Unit unit, std::size_t finger, int value, TimePoint now)
{
    fingers[finger].motion.placeAt(scale(unit, finger).toLogical(value), now);
}

void Hand::setSpeed(std::size_t finger, std::uint8_t speed, TimePoint now)
{
    fingers[finger].nextSpeed = speed;
    if (traits.appliesSpeedAtOnce)
        fingers[finger].motion.setSpeed(speed, now);
}

int Hand::target(Unit unit, std::size_t finger) const
{
    return scale(unit, finger).fromLogical(fingers[finger].motion.target());
}

int Hand::position(Unit unit, std::size_t finger, TimePoint now) const
{
    return scale(unit, finger).fromLogical(fingers[finger].motion.position(now));
}

std::uint16_t Hand::current(std::size_t finger, TimePoint now) const
{
    const Finger& selected = fingers[finger];
    if (selected.fixedCurrent)
        return *selected.fixedCurrent;
    if (!selected.motion.isMoving(now))
        return static_cast<std::uint16_t>(IdleCurrentBase + finger);
    const std::size_t ripple = selected.motion.position(now) / 1024U + 7U * finger;
    return static_cast<std::uint16_t>(MovingCurrentBase + ripple % MovingCurrentSpan);
}

std::uint16_t Hand::force(std::size_t finger, std::size_t point, TimePoint now) const
{
    const Finger& selected = fingers[finger];
    if (selected.fixedForce)
        return *selected.fixedForce;
    return static_cast<std::uint16_t>(10 + 5 * finger + point +
                                      selected.motion.position(now) / 4096U);
}

std::uint8_t Hand::thumbRootPreset(TimePoint now) const
{
    const int raw = position(Unit::Raw, ThumbRoot, now);
    for (std::size_t index = 0; index < thumbRootPresets.size(); ++index) {
        if (std::abs(raw - int{rawPreset(index)}) <= PresetWindow)
            return static_cast<std::uint8_t>(index);
    }
    return NoPreset;
}

std::uint16_t Hand::rawPreset(std::size_t index) const
{
    return static_cast<std::uint16_t>(std::lround(thumbRootPresets[index]));
}

std::uint16_t Hand::logicalPreset(std::size_t index) const
{
    const Scale& range = fingers[ThumbRoot].raw;
    if (range.atZero == range.atFull)
        return 0;
    const double share = (thumbRootPresets[index] - range.atZero) / (range.atFull - range.atZero);
    return static_cast<std::uint16_t>(std::lround(std::clamp(share, 0.0, 1.0) * MaxLogical));
}

void Hand::setLogicalPreset(std::size_t index, std::uint16_t logical)
{
    const Scale& range = fingers[ThumbRoot].raw;
    thumbRootPresets[index] = range.atZero + (range.atFull - range.atZero) * (logical / MaxLogical);
}

void Hand::stopMotion(TimePoint now)
{
    for (Finger& finger : fingers)
        finger.motion.reset(now);
}

void Hand::startInit(TimePoint now)
{
    ++inits;
    for (Finger& finger : fingers)
        finger.motion.moveTo(0, InitSpeed, now);
}

void Hand::powerCycle(TimePoint now)
{
    powered = true;
    m_calibrating = false;
    m_stage = 0;
    m_rebootedAt = now;
    stopMotion(now);
}

void Hand::rebootWithId(std::uint8_t newId, TimePoint now)
{
    id = newId;
    stopMotion(now);
    m_calibrating = false;
    m_stage = 0;
    m_rebootedAt = now + std::chrono::milliseconds(rebootTime);
}

SubError Hand::calibrate(std::uint16_t key, TimePoint now)
{
    if (m_calibrating)
        return AlreadyCalibrating;
    if (key != traits.calibrationKey)
        return Refused;
    ++calibrations;
    stopMotion(now);
    m_calibrating = true;
    m_stage = 0;
    m_rebootedAt = now + std::chrono::milliseconds(rebootTime);
    beeps += CalibrationBeeps;
    return NoSubError;
}

void Hand::setButtonCount(std::uint8_t count, TimePoint now)
{
    buttonCount = count;
    if (!isCalibrating(now))
        return;
    if (count == 1)
        m_stage = 0;
    if (count != m_stage + 1 || count > CalibrationStages)
        return;
    m_stage = count;
    std::uint16_t& thumbRootRaw = count == 1 ? m_firstThumbRoot : m_lastThumbRoot;
    thumbRootRaw = static_cast<std::uint16_t>(position(Unit::Raw, ThumbRoot, now));
    if (m_stage == CalibrationStages)
        storeCalibration();
}

void Hand::storeCalibration()
{
    for (Finger& finger : fingers) {
        finger.raw.atZero = std::clamp(finger.raw.atZero + m_measuredShift, 0, MaxRaw);
        finger.raw.atFull = std::clamp(finger.raw.atFull - m_measuredShift, 0, MaxRaw);
    }
    m_measuredShift = -m_measuredShift;
    const int between = (m_firstThumbRoot + m_lastThumbRoot) / 2;
    thumbRootPresets = {double(m_firstThumbRoot), double(between), double(m_lastThumbRoot)};
}

Scale Hand::scale(Unit unit, std::size_t finger) const
{
    switch (unit) {
    case Unit::Raw:
        return fingers[finger].raw;
    case Unit::Angle:
        return JointAngles[finger];
    case Unit::Logical:
        break;
    }
    return {};
}

} // namespace vanto::simulator
