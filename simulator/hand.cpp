#include "hand.h"

#include <algorithm>
#include <cstdlib>

namespace vanto::simulator
{
namespace
{
// Joint limits in hundredths of a degree, at logical positions 0 and 65535.
constexpr std::array<Scale, fingerCount> jointAngles{
    {{-1269, 3676}, {9100, 18091}, {8958, 17852}, {8947, 17904}, {8805, 17733}, {-200, 9200}}};

constexpr int maxRaw = 65535;
constexpr int presetWindow = 1024; // raw units to either side
constexpr quint8 initSpeed = 255;
constexpr quint8 calibrationStages = 3;
constexpr quint32 calibratingBeeps = 8;

constexpr quint16 movingCurrentBase = 25; // mA
constexpr quint16 movingCurrentSpan = 36;
constexpr quint16 idleCurrentBase = 3;

Finger makeFinger(std::size_t index, double speedFactor)
{
    const auto number = static_cast<int>(index);
    const auto step = static_cast<float>(index);
    Finger finger;
    finger.pid = {1.5F + 0.25F * step, 0.05F + 0.01F * step, 0.4F + 0.1F * step,
                  1.0F + 0.125F * step};
    finger.currentLimit = static_cast<quint16>(400 + 10 * number);
    finger.forceLimit = static_cast<quint16>(1000 + 50 * number);
    finger.raw = {400 + 13 * number, 3600 - 17 * number};
    finger.motion = FingerMotion(speedFactor);
    finger.moves = static_cast<quint32>(100 + 11 * number);
    return finger;
}
} // namespace

Hand::Hand(quint8 nodeId, const HandTraits& delivered)
    : traits(delivered), id(nodeId), uid{0x00430020U + nodeId, 0x484E5601U, 0x20383550U}
{
    for (std::size_t finger = 0; finger < fingerCount; ++finger)
        fingers[finger] = makeFinger(finger, traits.speedFactor);
}

void Hand::moveTo(Unit unit, std::size_t finger, int value, quint8 speed, Moment now)
{
    fingers[finger].motion.moveTo(scale(unit, finger).toLogical(value), speed, now);
    ++fingers[finger].moves;
}

void Hand::placeAt(Unit unit, std::size_t finger, int value, Moment now)
{
    fingers[finger].motion.placeAt(scale(unit, finger).toLogical(value), now);
}

int Hand::target(Unit unit, std::size_t finger) const
{
    return scale(unit, finger).fromLogical(fingers[finger].motion.target());
}

int Hand::position(Unit unit, std::size_t finger, Moment now) const
{
    return scale(unit, finger).fromLogical(fingers[finger].motion.position(now));
}

quint16 Hand::current(std::size_t finger, Moment now) const
{
    const Finger& asked = fingers[finger];
    if (asked.pinnedCurrent)
        return *asked.pinnedCurrent;
    if (!asked.motion.isMoving(now))
        return static_cast<quint16>(idleCurrentBase + finger);
    const std::size_t ripple = asked.motion.position(now) / 1024U + 7U * finger;
    return static_cast<quint16>(movingCurrentBase + ripple % movingCurrentSpan);
}

quint16 Hand::force(std::size_t finger, std::size_t point, Moment now) const
{
    const Finger& asked = fingers[finger];
    if (asked.pinnedForce)
        return *asked.pinnedForce;
    return static_cast<quint16>(10 + 5 * finger + point + asked.motion.position(now) / 4096U);
}

quint8 Hand::thumbRootPreset(Moment now) const
{
    const int raw = position(Unit::Raw, thumbRoot, now);
    for (std::size_t index = 0; index < thumbRootPresets.size(); ++index) {
        if (std::abs(raw - thumbRootPresets[index]) <= presetWindow)
            return static_cast<quint8>(index);
    }
    return noPreset;
}

void Hand::stopMotion(Moment now)
{
    for (Finger& finger : fingers)
        finger.motion.placeAt(finger.motion.position(now), now);
}

void Hand::startInit(Moment now)
{
    ++inits;
    for (Finger& finger : fingers)
        finger.motion.moveTo(0, initSpeed, now);
}

void Hand::powerCycle(Moment now)
{
    powered = true;
    m_calibrating = false;
    m_stage = 0;
    m_rebootedAt = now;
    stopMotion(now);
}

SubError Hand::calibrate(quint16 key, Moment now)
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
    beeps += calibratingBeeps;
    return NoSubError;
}

void Hand::setButtonCount(quint8 count, Moment now)
{
    buttonCount = count;
    if (!isCalibrating(now))
        return;
    if (count == 1)
        m_stage = 0;
    if (count != m_stage + 1 || count > calibrationStages)
        return;
    m_stage = count;
    quint16& thumbRootNow = count == 1 ? m_firstThumbRoot : m_lastThumbRoot;
    thumbRootNow = static_cast<quint16>(position(Unit::Raw, thumbRoot, now));
    if (m_stage == calibrationStages)
        storeCalibration();
}

void Hand::storeCalibration()
{
    for (Finger& finger : fingers) {
        finger.raw.atZero = std::clamp(finger.raw.atZero + m_measuredShift, 0, maxRaw);
        finger.raw.atFull = std::clamp(finger.raw.atFull - m_measuredShift, 0, maxRaw);
    }
    m_measuredShift = -m_measuredShift;
    const auto between = static_cast<quint16>((m_firstThumbRoot + m_lastThumbRoot) / 2);
    thumbRootPresets = {m_firstThumbRoot, between, m_lastThumbRoot};
}

Scale Hand::scale(Unit unit, std::size_t finger) const
{
    switch (unit) {
    case Unit::Raw:
        return fingers[finger].raw;
    case Unit::Angle:
        return jointAngles[finger];
    case Unit::Logical:
        break;
    }
    return {};
}

} // namespace vanto::simulator
