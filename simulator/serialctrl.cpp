#include "serialctrl.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace vanto::simulator
{
namespace
{
constexpr unsigned maxForceValues = 16;
constexpr int variableLength = -1;

char toByte(unsigned value)
{
    return static_cast<char>(value & 0xFFU);
}

Answer refusal(SubError error)
{
    return {{}, error};
}

// One request being carried out; the arguments are taken in the order of the payload.
struct Call {
    Hand& hand;
    QByteArrayView rest;
    Moment now;
    std::size_t finger = 0;

    quint8 u8();
    quint16 u16();
    float f32();
    Finger& asked() { return hand.fingers[finger]; }
    Answer echo() const { return Answer().u8(static_cast<unsigned>(finger)); }
};

quint8 Call::u8()
{
    if (rest.isEmpty())
        return 0;
    const auto value = static_cast<quint8>(rest.front());
    rest = rest.sliced(1);
    return value;
}

quint16 Call::u16()
{
    const unsigned low = u8();
    return static_cast<quint16>(low | static_cast<unsigned>(u8()) << 8U);
}

float Call::f32()
{
    const quint32 low = u16();
    return std::bit_cast<float>(low | static_cast<quint32>(u16()) << 16U);
}

int wireToUnit(Unit unit, quint16 wire)
{
    return unit == Unit::Angle ? static_cast<qint16>(wire) : wire;
}

unsigned unitToWire(int value)
{
    return static_cast<unsigned>(value) & 0xFFFFU;
}

template<Unit unit>
Answer readPosition(Call& call)
{
    return call.echo()
        .u16(unitToWire(call.hand.target(unit, call.finger)))
        .u16(unitToWire(call.hand.position(unit, call.finger, call.now)));
}

template<Unit unit>
Answer readAllPositions(Call& call)
{
    const unsigned count = call.u8();
    if (count > fingerCount)
        return refusal(BadArgument);
    Answer answer;
    for (unsigned finger = 0; finger < count; ++finger)
        answer.u16(unitToWire(call.hand.target(unit, finger)));
    for (unsigned finger = 0; finger < count; ++finger)
        answer.u16(unitToWire(call.hand.position(unit, finger, call.now)));
    return answer;
}

template<Unit unit>
Answer movePosition(Call& call)
{
    const int value = wireToUnit(unit, call.u16());
    call.hand.moveTo(unit, call.finger, value, call.u8(), call.now);
    return {};
}

template<Unit unit>
Answer moveAllPositions(Call& call)
{
    constexpr qsizetype groupSize = 3;
    const bool counted = !call.rest.isEmpty();
    const unsigned count = call.u8();
    if (!counted || count > fingerCount || call.rest.size() != groupSize * count)
        return refusal(BadArgument);
    for (call.finger = 0; call.finger < count; ++call.finger)
        movePosition<unit>(call);
    return {};
}

// The ranges go over the wire as all ends first, then all starts.
Answer getCalibration(Call& call)
{
    const unsigned fingers = call.u8();
    const unsigned presets = call.u8();
    if (fingers > fingerCount || presets > thumbRootPresetCount)
        return refusal(BadArgument);
    Answer answer;
    for (unsigned finger = 0; finger < fingers; ++finger)
        answer.u16(unitToWire(call.hand.fingers[finger].raw.atFull));
    for (unsigned finger = 0; finger < fingers; ++finger)
        answer.u16(unitToWire(call.hand.fingers[finger].raw.atZero));
    for (unsigned preset = 0; preset < presets; ++preset)
        answer.u16(call.hand.thumbRootPresets[preset]);
    return answer;
}

Answer setCalibration(Call& call)
{
    const QByteArrayView payload = call.rest;
    const unsigned fingers = call.u8();
    const qsizetype presetCountAt = 1 + 4 * static_cast<qsizetype>(fingers);
    if (fingers > fingerCount || payload.size() <= presetCountAt)
        return refusal(BadArgument);
    const auto presets = static_cast<quint8>(payload[presetCountAt]);
    if (presets > thumbRootPresetCount ||
        payload.size() != presetCountAt + 1 + 2 * static_cast<qsizetype>(presets))
        return refusal(BadArgument);
    for (unsigned finger = 0; finger < fingers; ++finger)
        call.hand.fingers[finger].raw.atFull = call.u16();
    for (unsigned finger = 0; finger < fingers; ++finger)
        call.hand.fingers[finger].raw.atZero = call.u16();
    call.u8();
    for (unsigned preset = 0; preset < presets; ++preset)
        call.hand.thumbRootPresets[preset] = call.u16();
    return {};
}

Answer getForce(Call& call)
{
    const unsigned count = call.u8();
    if (count > maxForceValues)
        return refusal(BadArgument);
    Answer answer = call.echo();
    for (unsigned point = 0; point < count; ++point)
        answer.u16(call.hand.force(call.finger, point, call.now));
    return answer;
}

Answer getPid(Call& call)
{
    Answer answer = call.echo();
    for (const float gain : call.asked().pid)
        answer.f32(gain);
    return answer;
}

Answer setPid(Call& call)
{
    for (float& gain : call.asked().pid)
        gain = call.f32();
    return {};
}

Answer getThumbRootPosition(Call& call)
{
    const int raw = call.hand.position(Unit::Raw, thumbRoot, call.now);
    return Answer().u16(unitToWire(raw)).u8(call.hand.thumbRootPreset(call.now));
}

Answer getUid(Call& call)
{
    Answer answer;
    for (const quint32 word : call.hand.uid)
        answer.u32(word);
    return answer;
}

// The reply always holds all six values, whatever count is asked for.
Answer getUsage(Call& call)
{
    if (call.u8() > fingerCount)
        return refusal(BadArgument);
    Answer answer;
    answer.u32(call.hand.usage);
    for (const Finger& finger : call.hand.fingers)
        answer.u32(finger.moves);
    return answer;
}

Answer setPositionLimit(Call& call)
{
    call.asked().raw.atZero = call.u16();
    call.asked().raw.atFull = call.u16();
    return {};
}

Answer switchFingers(Call& call, void (FingerMotion::*action)(Moment))
{
    const unsigned mask = call.u8();
    for (unsigned finger = 0; finger < fingerCount; ++finger) {
        if ((mask >> finger & 1U) != 0)
            (call.hand.fingers[finger].motion.*action)(call.now);
    }
    return {};
}

Answer reset(Call& call)
{
    ++call.hand.resets;
    call.hand.stopMotion(call.now);
    return {};
}

Answer calibrate(Call& call)
{
    return {{}, call.hand.calibrate(call.u16(), call.now)};
}

Answer beep(Call& call)
{
    call.hand.beepDuration = call.u16();
    ++call.hand.beeps;
    return {};
}

template<auto Member>
Answer readByte(Call& call)
{
    return Answer().u8(call.hand.*Member);
}

template<auto Member>
Answer writeByte(Call& call)
{
    call.hand.*Member = call.u8();
    return {};
}

template<auto Member>
Answer readFingerWord(Call& call)
{
    return call.echo().u16(call.asked().*Member);
}

template<auto Member>
Answer writeFingerWord(Call& call)
{
    call.asked().*Member = call.u16();
    return {};
}

// What the first payload byte is.
enum class Leads { Argument, Finger, ForceFinger };

struct Command {
    quint8 code;
    int length; // payload bytes
    Leads leads;
    Answer (*carryOut)(Call&);
};

constexpr Command commands[] = {
    {0x00, 0, Leads::Argument,
     [](Call& c) {
         const Version& v = c.hand.traits.protocol;
         return Answer().u8(v.minor).u8(v.major);
     }},
    {0x01, 0, Leads::Argument,
     [](Call& c) {
         const Version& v = c.hand.traits.firmware;
         return Answer().u16(v.revision).u8(v.minor).u8(v.major);
     }},
    {0x02, 0, Leads::Argument,
     [](Call& c) {
         const HandTraits& t = c.hand.traits;
         const unsigned boot = t.bootLoader.major * 0x100U + t.bootLoader.minor;
         return Answer().u8(t.hardwareType).u8(t.hardwareVersion).u16BigEndian(boot);
     }},
    {0x03, 2, Leads::Argument, getCalibration},
    {0x04, 1, Leads::Finger, getPid},
    {0x05, 1, Leads::Finger, readFingerWord<&Finger::currentLimit>},
    {0x06, 1, Leads::Finger, [](Call& c) { return c.echo().u16(c.hand.current(c.finger, c.now)); }},
    {0x07, 1, Leads::ForceFinger, readFingerWord<&Finger::forceLimit>},
    {0x08, 2, Leads::ForceFinger, getForce},
    {0x09, 1, Leads::Finger,
     [](Call& c) {
         const Scale& raw = c.asked().raw;
         return c.echo().u16(unitToWire(raw.atZero)).u16(unitToWire(raw.atFull));
     }},
    {0x0A, 1, Leads::Finger, readPosition<Unit::Raw>},
    {0x0B, 1, Leads::Finger, readPosition<Unit::Logical>},
    {0x0C, 1, Leads::Finger, readPosition<Unit::Angle>},
    {0x0D, 0, Leads::Argument, getThumbRootPosition},
    {0x0E, 1, Leads::Argument, readAllPositions<Unit::Raw>},
    {0x0F, 1, Leads::Argument, readAllPositions<Unit::Logical>},
    {0x10, 1, Leads::Argument, readAllPositions<Unit::Angle>},
    {0x20, 0, Leads::Argument, readByte<&Hand::selfTestLevel>},
    {0x21, 0, Leads::Argument, readByte<&Hand::beepSwitch>},
    {0x22, 0, Leads::Argument, readByte<&Hand::buttonCount>},
    {0x23, 0, Leads::Argument, getUid},
    {0x24, 0, Leads::Argument, [](Call& c) { return Answer().u16(c.hand.voltage); }},
    {0x25, 1, Leads::Argument, getUsage},
    {0x40, 1, Leads::Argument, reset},
    {0x41, 0, Leads::Argument,
     [](Call& c) {
         c.hand.powered = false;
         return Answer();
     }},
    {0x42, 1, Leads::Argument, writeByte<&Hand::id>},
    {0x43, 2, Leads::Argument, calibrate},
    {0x44, variableLength, Leads::Argument, setCalibration},
    {0x45, 17, Leads::Finger, setPid},
    {0x46, 3, Leads::Finger, writeFingerWord<&Finger::currentLimit>},
    {0x47, 3, Leads::ForceFinger, writeFingerWord<&Finger::forceLimit>},
    {0x48, 5, Leads::Finger, setPositionLimit},
    {0x49, 1, Leads::Argument, [](Call& c) { return switchFingers(c, &FingerMotion::start); }},
    {0x4A, 1, Leads::Argument, [](Call& c) { return switchFingers(c, &FingerMotion::stop); }},
    {0x4B, 4, Leads::Finger, movePosition<Unit::Raw>},
    {0x4C, 4, Leads::Finger, movePosition<Unit::Logical>},
    {0x4D, 4, Leads::Finger, movePosition<Unit::Angle>},
    {0x4F, variableLength, Leads::Argument, moveAllPositions<Unit::Raw>},
    {0x50, variableLength, Leads::Argument, moveAllPositions<Unit::Logical>},
    {0x51, variableLength, Leads::Argument, moveAllPositions<Unit::Angle>},
    // Custom data has no meaning to this hand: it comes back as it went.
    {0x5F, variableLength, Leads::Argument,
     [](Call& c) {
         return Answer{c.rest.toByteArray(), NoSubError};
     }},
    {0x60, 1, Leads::Argument, writeByte<&Hand::selfTestLevel>},
    {0x61, 1, Leads::Argument, writeByte<&Hand::beepSwitch>},
    {0x62, 2, Leads::Argument, beep},
    {0x63, 1, Leads::Argument,
     [](Call& c) {
         c.hand.setButtonCount(c.u8(), c.now);
         return Answer();
     }},
    {0x64, 0, Leads::Argument,
     [](Call& c) {
         c.hand.startInit(c.now);
         return Answer();
     }},
};
} // namespace

Answer& Answer::u8(unsigned value)
{
    payload.append(toByte(value));
    return *this;
}

Answer& Answer::u16(unsigned value)
{
    payload.append(toByte(value)).append(toByte(value >> 8U));
    return *this;
}

Answer& Answer::u16BigEndian(unsigned value)
{
    payload.append(toByte(value >> 8U)).append(toByte(value));
    return *this;
}

Answer& Answer::u32(quint32 value)
{
    return u16(value & 0xFFFFU).u16(value >> 16U);
}

Answer& Answer::f32(float value)
{
    return u32(std::bit_cast<quint32>(value));
}

Answer serialCtrlAnswer(Hand& hand, quint8 command, QByteArrayView payload, Moment now)
{
    const auto* const entry = std::ranges::find(commands, command, &Command::code);
    if (entry == std::end(commands))
        return refusal(UnknownCommand);
    if (entry->leads == Leads::ForceFinger && !hand.traits.forceSensing)
        return refusal(NoForceSensing);
    if (entry->length != variableLength && payload.size() != entry->length)
        return refusal(BadArgument);

    Call call{hand, payload, now};
    if (entry->leads == Leads::Argument)
        return entry->carryOut(call);

    // The thumb root has no force sensor.
    const std::size_t limit = entry->leads == Leads::ForceFinger ? thumbRoot : fingerCount;
    call.finger = call.u8();
    if (call.finger >= limit)
        return refusal(BadArgument);
    return entry->carryOut(call);
}

} // namespace vanto::simulator
