#include "serialctrl.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace vanto::simulator
{
namespace
{
constexpr unsigned MaxForceValues = 16;
constexpr int VariableLength = -1;

char toByte(unsigned value)
{
    return static_cast<char>(value & 0xFFU);
}

Response refusal(SubError error)
{
    return {{}, error};
}

/// A request that is being executed. The take functions read the payload in its order.
struct Call {
    Hand& hand;
    QByteArrayView rest;
    TimePoint now;
    std::size_t finger = 0;

    std::uint8_t takeU8();
    std::uint16_t takeU16();
    float takeF32();
    Finger& selectedFinger() { return hand.fingers[finger]; }
    Response echo() const { return Response().u8(static_cast<unsigned>(finger)); }
};

std::uint8_t Call::takeU8()
{
    if (rest.isEmpty())
        return 0;
    const auto value = static_cast<std::uint8_t>(rest.front());
    rest = rest.sliced(1);
    return value;
}

std::uint16_t Call::takeU16()
{
    const unsigned low = takeU8();
    return static_cast<std::uint16_t>(low | static_cast<unsigned>(takeU8()) << 8U);
}

float Call::takeF32()
{
    const std::uint32_t low = takeU16();
    return std::bit_cast<float>(low | static_cast<std::uint32_t>(takeU16()) << 16U);
}

int wireToUnit(Unit unit, std::uint16_t wire)
{
    return unit == Unit::Angle ? static_cast<std::int16_t>(wire) : wire;
}

unsigned unitToWire(int value)
{
    return static_cast<unsigned>(value) & 0xFFFFU;
}

template<Unit unit>
Response readPosition(Call& call)
{
    return call.echo()
        .u16(unitToWire(call.hand.target(unit, call.finger)))
        .u16(unitToWire(call.hand.position(unit, call.finger, call.now)));
}

template<Unit unit>
Response readAllPositions(Call& call)
{
    const unsigned count = call.takeU8();
    if (count > FingerCount)
        return refusal(BadArgument);
    Response response;
    for (unsigned finger = 0; finger < count; ++finger)
        response.u16(unitToWire(call.hand.target(unit, finger)));
    for (unsigned finger = 0; finger < count; ++finger)
        response.u16(unitToWire(call.hand.position(unit, finger, call.now)));
    return response;
}

template<Unit unit>
Response movePosition(Call& call)
{
    const int value = wireToUnit(unit, call.takeU16());
    call.hand.moveTo(unit, call.finger, value, call.takeU8(), call.now);
    return {};
}

template<Unit unit>
Response moveAllPositions(Call& call)
{
    constexpr qsizetype groupSize = 3;
    const bool hasCount = !call.rest.isEmpty();
    const unsigned count = call.takeU8();
    if (!hasCount || count > FingerCount || call.rest.size() != groupSize * count)
        return refusal(BadArgument);
    for (call.finger = 0; call.finger < count; ++call.finger)
        movePosition<unit>(call);
    return {};
}

/// On the wire, the ends of all ranges precede the starts.
Response getCalibration(Call& call)
{
    const unsigned fingers = call.takeU8();
    const unsigned presets = call.takeU8();
    if (fingers > FingerCount || presets > ThumbRootPresetCount)
        return refusal(BadArgument);
    Response response;
    for (unsigned finger = 0; finger < fingers; ++finger)
        response.u16(unitToWire(call.hand.fingers[finger].raw.atFull));
    for (unsigned finger = 0; finger < fingers; ++finger)
        response.u16(unitToWire(call.hand.fingers[finger].raw.atZero));
    for (unsigned preset = 0; preset < presets; ++preset)
        response.u16(call.hand.rawPreset(preset));
    return response;
}

Response setCalibration(Call& call)
{
    const QByteArrayView payload = call.rest;
    const unsigned fingers = call.takeU8();
    const qsizetype presetCountAt = 1 + 4 * static_cast<qsizetype>(fingers);
    if (fingers > FingerCount || payload.size() <= presetCountAt)
        return refusal(BadArgument);
    const auto presets = static_cast<std::uint8_t>(payload[presetCountAt]);
    if (presets > ThumbRootPresetCount ||
        payload.size() != presetCountAt + 1 + 2 * static_cast<qsizetype>(presets))
        return refusal(BadArgument);
    for (unsigned finger = 0; finger < fingers; ++finger)
        call.hand.fingers[finger].raw.atFull = call.takeU16();
    for (unsigned finger = 0; finger < fingers; ++finger)
        call.hand.fingers[finger].raw.atZero = call.takeU16();
    call.takeU8();
    for (unsigned preset = 0; preset < presets; ++preset)
        call.hand.thumbRootPresets[preset] = call.takeU16();
    return {};
}

Response getForce(Call& call)
{
    const unsigned count = call.takeU8();
    if (count > MaxForceValues)
        return refusal(BadArgument);
    Response response = call.echo();
    for (unsigned point = 0; point < count; ++point)
        response.u16(call.hand.force(call.finger, point, call.now));
    return response;
}

Response getPid(Call& call)
{
    Response response = call.echo();
    for (const float gain : call.selectedFinger().pid)
        response.f32(gain);
    return response;
}

Response setPid(Call& call)
{
    for (float& gain : call.selectedFinger().pid)
        gain = call.takeF32();
    return {};
}

Response getThumbRootPosition(Call& call)
{
    const int raw = call.hand.position(Unit::Raw, ThumbRoot, call.now);
    return Response().u16(unitToWire(raw)).u8(call.hand.thumbRootPreset(call.now));
}

Response getUid(Call& call)
{
    Response response;
    for (const std::uint32_t word : call.hand.uid)
        response.u32(word);
    return response;
}

/// The reply always contains the values of all six fingers, whatever count is requested.
Response getUsage(Call& call)
{
    if (call.takeU8() > FingerCount)
        return refusal(BadArgument);
    Response response;
    response.u32(call.hand.usage);
    for (const Finger& finger : call.hand.fingers)
        response.u32(finger.moves);
    return response;
}

Response setPositionLimit(Call& call)
{
    call.selectedFinger().raw.atZero = call.takeU16();
    call.selectedFinger().raw.atFull = call.takeU16();
    return {};
}

Response switchFingers(Call& call, void (FingerMotion::*action)(TimePoint))
{
    const unsigned mask = call.takeU8();
    for (unsigned finger = 0; finger < FingerCount; ++finger) {
        if ((mask >> finger & 1U) != 0)
            (call.hand.fingers[finger].motion.*action)(call.now);
    }
    return {};
}

Response reset(Call& call)
{
    ++call.hand.resets;
    call.hand.stopMotion(call.now);
    return {};
}

Response calibrate(Call& call)
{
    return {{}, call.hand.calibrate(call.takeU16(), call.now)};
}

Response beep(Call& call)
{
    call.hand.beepDuration = call.takeU16();
    ++call.hand.beeps;
    return {};
}

template<auto Member>
Response readByte(Call& call)
{
    return Response().u8(call.hand.*Member);
}

template<auto Member>
Response writeByte(Call& call)
{
    call.hand.*Member = call.takeU8();
    return {};
}

template<auto Member>
Response readFingerWord(Call& call)
{
    return call.echo().u16(call.selectedFinger().*Member);
}

template<auto Member>
Response writeFingerWord(Call& call)
{
    call.selectedFinger().*Member = call.takeU16();
    return {};
}

/// The meaning of the first payload byte.
enum class FirstByte { Argument, Finger, ForceFinger };

struct Command {
    std::uint8_t code;
    int length; ///< payload bytes
    FirstByte firstByte;
    Response (*execute)(Call&);
};

constexpr Command Commands[] = {
    {0x00, 0, FirstByte::Argument,
     [](Call& c) {
         const Version& v = c.hand.traits.protocol;
         return Response().u8(v.minor).u8(v.major);
     }},
    {0x01, 0, FirstByte::Argument,
     [](Call& c) {
         const Version& v = c.hand.traits.firmware;
         return Response().u16(v.revision).u8(v.minor).u8(v.major);
     }},
    {0x02, 0, FirstByte::Argument,
     [](Call& c) {
         const HandTraits& t = c.hand.traits;
         const unsigned boot = t.bootLoader.major * 0x100U + t.bootLoader.minor;
         return Response().u8(t.hardwareType).u8(t.hardwareVersion).u16BigEndian(boot);
     }},
    {0x03, 2, FirstByte::Argument, getCalibration},
    {0x04, 1, FirstByte::Finger, getPid},
    {0x05, 1, FirstByte::Finger, readFingerWord<&Finger::currentLimit>},
    {0x06, 1, FirstByte::Finger,
     [](Call& c) { return c.echo().u16(c.hand.current(c.finger, c.now)); }},
    {0x07, 1, FirstByte::ForceFinger, readFingerWord<&Finger::forceLimit>},
    {0x08, 2, FirstByte::ForceFinger, getForce},
    {0x09, 1, FirstByte::Finger,
     [](Call& c) {
         const Scale& raw = c.selectedFinger().raw;
         return c.echo().u16(unitToWire(raw.atZero)).u16(unitToWire(raw.atFull));
     }},
    {0x0A, 1, FirstByte::Finger, readPosition<Unit::Raw>},
    {0x0B, 1, FirstByte::Finger, readPosition<Unit::Logical>},
    {0x0C, 1, FirstByte::Finger, readPosition<Unit::Angle>},
    {0x0D, 0, FirstByte::Argument, getThumbRootPosition},
    {0x0E, 1, FirstByte::Argument, readAllPositions<Unit::Raw>},
    {0x0F, 1, FirstByte::Argument, readAllPositions<Unit::Logical>},
    {0x10, 1, FirstByte::Argument, readAllPositions<Unit::Angle>},
    {0x20, 0, FirstByte::Argument, readByte<&Hand::selfTestLevel>},
    {0x21, 0, FirstByte::Argument, readByte<&Hand::beepSwitch>},
    {0x22, 0, FirstByte::Argument, readByte<&Hand::buttonCount>},
    {0x23, 0, FirstByte::Argument, getUid},
    {0x24, 0, FirstByte::Argument, [](Call& c) { return Response().u16(c.hand.voltage); }},
    {0x25, 1, FirstByte::Argument, getUsage},
    {0x40, 1, FirstByte::Argument, reset},
    {0x41, 0, FirstByte::Argument,
     [](Call& c) {
         c.hand.powered = false;
         return Response();
     }},
    {0x42, 1, FirstByte::Argument, writeByte<&Hand::id>},
    {0x43, 2, FirstByte::Argument, calibrate},
    {0x44, VariableLength, FirstByte::Argument, setCalibration},
    {0x45, 17, FirstByte::Finger, setPid},
    {0x46, 3, FirstByte::Finger, writeFingerWord<&Finger::currentLimit>},
    {0x47, 3, FirstByte::ForceFinger, writeFingerWord<&Finger::forceLimit>},
    {0x48, 5, FirstByte::Finger, setPositionLimit},
    {0x49, 1, FirstByte::Argument, [](Call& c) { return switchFingers(c, &FingerMotion::start); }},
    {0x4A, 1, FirstByte::Argument, [](Call& c) { return switchFingers(c, &FingerMotion::stop); }},
    {0x4B, 4, FirstByte::Finger, movePosition<Unit::Raw>},
    {0x4C, 4, FirstByte::Finger, movePosition<Unit::Logical>},
    {0x4D, 4, FirstByte::Finger, movePosition<Unit::Angle>},
    {0x4F, VariableLength, FirstByte::Argument, moveAllPositions<Unit::Raw>},
    {0x50, VariableLength, FirstByte::Argument, moveAllPositions<Unit::Logical>},
    {0x51, VariableLength, FirstByte::Argument, moveAllPositions<Unit::Angle>},
    // The hand returns custom data unchanged.
    {0x5F, VariableLength, FirstByte::Argument,
     [](Call& c) {
         return Response{c.rest.toByteArray(), NoSubError};
     }},
    {0x60, 1, FirstByte::Argument, writeByte<&Hand::selfTestLevel>},
    {0x61, 1, FirstByte::Argument, writeByte<&Hand::beepSwitch>},
    {0x62, 2, FirstByte::Argument, beep},
    {0x63, 1, FirstByte::Argument,
     [](Call& c) {
         c.hand.setButtonCount(c.takeU8(), c.now);
         return Response();
     }},
    {0x64, 0, FirstByte::Argument,
     [](Call& c) {
         c.hand.startInit(c.now);
         return Response();
     }},
};
} // namespace

Response& Response::u8(unsigned value)
{
    payload.append(toByte(value));
    return *this;
}

Response& Response::u16(unsigned value)
{
    payload.append(toByte(value)).append(toByte(value >> 8U));
    return *this;
}

Response& Response::u16BigEndian(unsigned value)
{
    payload.append(toByte(value >> 8U)).append(toByte(value));
    return *this;
}

Response& Response::u32(std::uint32_t value)
{
    return u16(value & 0xFFFFU).u16(value >> 16U);
}

Response& Response::f32(float value)
{
    return u32(std::bit_cast<std::uint32_t>(value));
}

Response executeSerialCtrl(Hand& hand, std::uint8_t command, QByteArrayView payload, TimePoint now)
{
    const auto* const entry = std::ranges::find(Commands, command, &Command::code);
    if (entry == std::end(Commands))
        return refusal(UnknownCommand);
    if (entry->firstByte == FirstByte::ForceFinger && !hand.traits.forceSensing)
        return refusal(NoForceSensing);
    if (entry->length != VariableLength && payload.size() != entry->length)
        return refusal(BadArgument);

    Call call{hand, payload, now};
    if (entry->firstByte == FirstByte::Argument)
        return entry->execute(call);

    const std::size_t limit = entry->firstByte == FirstByte::ForceFinger ? ThumbRoot : FingerCount;
    call.finger = call.takeU8();
    if (call.finger >= limit)
        return refusal(BadArgument);
    return entry->execute(call);
}

} // namespace vanto::simulator
