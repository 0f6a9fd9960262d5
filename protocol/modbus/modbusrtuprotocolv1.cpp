#include "modbusrtuprotocolv1.h"

#include "modbusgain.h"
#include "modbusregisters.h"
#include "registeraccess.h"
#include "resultcode.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace vanto
{

namespace
{
constexpr int PresetTolerance = 1024; ///< on either side of a preset
constexpr std::uint8_t NoPreset = 255;

template<class T>
void store(T* output, unsigned value)
{
    if (output)
        *output = static_cast<T>(value);
}

/// Reads a register with the major version in its high byte and, in the longer form, a second one
/// with the revision.
std::uint8_t readVersion(RegisterAccess&& access, int address, std::uint8_t* major,
                         std::uint8_t* minor, std::uint16_t* revision, std::uint16_t count)
{
    std::array<std::uint16_t, 2> words{};
    if (!access.read(address, words.data(), count).succeeded())
        return access.result();
    store(major, words[0] >> 8U);
    store(minor, words[0] & 0xFFU);
    store(revision, words[1]);
    return ResultCode::Success;
}

/// The registers of the four gains, each with its output or value.
template<class T>
std::array<std::pair<int, T>, 4> gains(T p, T i, T d, T g)
{
    return {{{Register::FingerP, p},
             {Register::FingerI, i},
             {Register::FingerD, d},
             {Register::FingerG, g}}};
}
} // namespace

using u8 = std::uint8_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using s16 = std::int16_t;

ModBusRTUProtocolV1::ModBusRTUProtocolV1() : m_client(ModBusRTUClient::create("qtmodbus")) {}

bool ModBusRTUProtocolV1::connect(const char* portName, std::uint32_t baudRate)
{
    return m_client->connect(portName, baudRate);
}

void ModBusRTUProtocolV1::disconnect()
{
    m_client->disconnect();
}

std::uint8_t ModBusRTUProtocolV1::translateError(ModBusRTUClient::Error error)
{
    constexpr std::array results{ResultCode::Success, Failed, Failed, NoAnswer, NoAnswer,
                                 ResultCode::Timeout};
    return error < results.size() ? results[error] : NoAnswer;
}

RegisterAccess ModBusRTUProtocolV1::access(u8 node) const
{
    return {m_client, node};
}

u8 ModBusRTUProtocolV1::getNodeError(u8 node)
{
    u8 error = 0;
    return access(node).read(Register::NodeError, &error).succeeded() ? error : Failed;
}

u8 ModBusRTUProtocolV1::getProtocolVersion(u8 node, u8* major, u8* minor)
{
    return readVersion(access(node), Register::ProtocolVersion, major, minor, nullptr, 1);
}

u8 ModBusRTUProtocolV1::getFirmwareVersion(u8 node, u8* major, u8* minor, u16* revision)
{
    return readVersion(access(node), Register::FirmwareVersion, major, minor, revision, 2);
}

u8 ModBusRTUProtocolV1::getHardwareVersion(u8 node, u8* major, u8* minor, u16* revision)
{
    return readVersion(access(node), Register::HardwareVersion, major, minor, revision, 2);
}

u8 ModBusRTUProtocolV1::getCaliData(u8 node, u16* endPositions, u16* startPositions, u8 fingerCount,
                                    u16* thumbRootPositions, u8 thumbRootCount)
{
    return access(node)
        .output(Register::FingerUpperLimit, endPositions, fingerCount)
        .output(Register::FingerLowerLimit, startPositions, fingerCount)
        .output(Register::ThumbRootPreset, thumbRootPositions, thumbRootCount)
        .result();
}

u8 ModBusRTUProtocolV1::getFingerPID(u8 node, u8 finger, float* p, float* i, float* d, float* g)
{
    auto requests = access(node);
    for (const auto& [address, output] : gains(p, i, d, g)) {
        u16 value = 0;
        if (!requests.read(address + finger, &value).succeeded())
            break;
        if (output)
            *output = gainFromRegister(value);
    }
    return requests.result();
}

u8 ModBusRTUProtocolV1::getFingerCurrentLimit(u8 node, u8 finger, u16* limit)
{
    return access(node).output(Register::FingerCurrentLimit + finger, limit).result();
}

u8 ModBusRTUProtocolV1::getFingerCurrent(u8 node, u8 finger, u16* current)
{
    return access(node).output(Register::FingerCurrent + finger, current).result();
}

u8 ModBusRTUProtocolV1::getFingerForceLimit(u8 node, u8 finger, u16* limit)
{
    return access(node).output(Register::FingerForceLimit + finger, limit).result();
}

u8 ModBusRTUProtocolV1::getFingerForce(u8 node, u8 finger, u16* force, u8 count)
{
    return access(node)
        .output(Register::FingerForce + Register::ForceBlockSize * finger, force, count)
        .result();
}

u8 ModBusRTUProtocolV1::getFingerPosLimit(u8 node, u8 finger, u16* lower, u16* upper)
{
    return access(node)
        .output(Register::FingerUpperLimit + finger, upper)
        .output(Register::FingerLowerLimit + finger, lower)
        .result();
}

u8 ModBusRTUProtocolV1::getFingerPosAbs(u8 node, u8 finger, u16* target, u16* current)
{
    auto requests = access(node);
    const PositionLimits scale = limits(requests, node, finger);
    const auto toAbsolute = [scale](qsizetype, u16 logical) { return scale.toAbsolute(logical); };
    if (target)
        requests.output(Register::FingerTargetPosition + finger, target, 1, toAbsolute);
    if (current)
        requests.output(Register::FingerPosition + finger, current, 1, toAbsolute);
    return requests.result();
}

u8 ModBusRTUProtocolV1::getFingerPos(u8 node, u8 finger, u16* target, u16* current)
{
    return access(node)
        .output(Register::FingerTargetPosition + finger, target)
        .output(Register::FingerPosition + finger, current)
        .result();
}

u8 ModBusRTUProtocolV1::getFingerAngle(u8 node, u8 finger, s16* target, s16* current)
{
    return access(node)
        .output(Register::FingerTargetAngle + finger, target)
        .output(Register::FingerAngle + finger, current)
        .result();
}

u8 ModBusRTUProtocolV1::getThumbRootPos(u8 node, u16* position, u8* index)
{
    auto requests = access(node);
    auto& presets = m_thumbRootPresets[node];
    if (presets[0] == 0)
        requests.read(Register::ThumbRootPreset, presets.data(), PresetCount);
    u16 actual = 0;
    if (!requests.read(Register::ThumbRootPosition, &actual).succeeded())
        return requests.result();
    const auto match = std::ranges::find_if(
        presets, [actual](u16 preset) { return std::abs(preset - actual) <= PresetTolerance; });
    store(position, actual);
    store(index, match == presets.end() ? NoPreset : static_cast<u8>(match - presets.begin()));
    return requests.result();
}

u8 ModBusRTUProtocolV1::getFingerPosAbsAll(u8 node, u16* targets, u16* currents, u8 count)
{
    auto requests = access(node);
    const std::vector<PositionLimits> scales = allLimits(requests, node, count);
    const auto toAbsolute = [&scales](qsizetype finger, u16 logical) {
        return scales[static_cast<std::size_t>(finger)].toAbsolute(logical);
    };
    return requests.output(Register::FingerTargetPosition, targets, count, toAbsolute)
        .output(Register::FingerPosition, currents, count, toAbsolute)
        .result();
}

u8 ModBusRTUProtocolV1::getFingerPosAll(u8 node, u16* targets, u16* currents, u8 count)
{
    return access(node)
        .output(Register::FingerTargetPosition, targets, count)
        .output(Register::FingerPosition, currents, count)
        .result();
}

u8 ModBusRTUProtocolV1::getFingerAngleAll(u8 node, s16* targets, s16* currents, u8 count)
{
    return access(node)
        .output(Register::FingerTargetAngle, targets, count)
        .output(Register::FingerAngle, currents, count)
        .result();
}

u8 ModBusRTUProtocolV1::getSelfTestLevel(u8 node, u8* level)
{
    return access(node).output(Register::SelfTestLevel, level).result();
}

u8 ModBusRTUProtocolV1::getBeepSwitch(u8 node, u8* on)
{
    return access(node).output(Register::BeepSwitch, on).result();
}

u8 ModBusRTUProtocolV1::getButtonPressedCnt(u8 node, u8* count)
{
    return access(node).output(Register::ButtonCount, count).result();
}

u8 ModBusRTUProtocolV1::getUID(u8 /*node*/, u32* /*word0*/, u32* /*word1*/, u32* /*word2*/)
{
    return Failed;
}

u8 ModBusRTUProtocolV1::getBatteryVoltage(u8 node, u16* voltage)
{
    return access(node).output(Register::BatteryVoltage, voltage).result();
}

u8 ModBusRTUProtocolV1::getUsageStat(u8 /*node*/, u32* /*total*/, u32* /*perFinger*/, u8 /*count*/)
{
    return Failed;
}

u8 ModBusRTUProtocolV1::reset(u8 node, u8 mode)
{
    return access(node).write(Register::Reset, mode).result();
}

u8 ModBusRTUProtocolV1::powerOff(u8 node)
{
    constexpr const u16* noValues = nullptr;
    return access(node).writeAll(Register::PowerOff, noValues, 0).result();
}

u8 ModBusRTUProtocolV1::setID(u8 node, u8 newNode)
{
    return access(node).write(Register::NodeId, newNode).result();
}

u8 ModBusRTUProtocolV1::calibrate(u8 node, u16 key)
{
    return access(node).write(Register::Calibrate, key).result();
}

u8 ModBusRTUProtocolV1::setCaliData(u8 node, const u16* endPositions, const u16* startPositions,
                                    const u16* thumbRootPositions, u16 fingerCount,
                                    u16 thumbRootCount)
{
    const u8 result = access(node)
                          .writeAll(Register::FingerUpperLimit, endPositions, fingerCount)
                          .writeAll(Register::FingerLowerLimit, startPositions, fingerCount)
                          .writeAll(Register::ThumbRootPreset, thumbRootPositions, thumbRootCount)
                          .result();
    // Absolute moves converted with old limits would miss their targets. After a failure the hand
    // may have some of the new values, or all.
    m_lowerLimits[node] = {};
    m_upperLimits[node] = {};
    m_thumbRootPresets[node] = {};
    return result;
}

u8 ModBusRTUProtocolV1::setFingerPID(u8 node, u8 finger, float p, float i, float d, float g)
{
    auto requests = access(node);
    for (const auto& [address, value] : gains(p, i, d, g))
        requests.write(address + finger, gainToRegister(value));
    return requests.result();
}

u8 ModBusRTUProtocolV1::setFingerCurrentLimit(u8 node, u8 finger, u16 limit)
{
    return access(node).write(Register::FingerCurrentLimit + finger, limit).result();
}

u8 ModBusRTUProtocolV1::setFingerForceLimit(u8 node, u8 finger, u16 limit)
{
    return access(node).write(Register::FingerForceLimit + finger, limit).result();
}

u8 ModBusRTUProtocolV1::setFingerPosLimit(u8 /*node*/, u8 /*finger*/, u16 /*lower*/, u16 /*upper*/)
{
    return Failed;
}

u8 ModBusRTUProtocolV1::fingerStart(u8 /*node*/, u8 /*mask*/)
{
    return Failed;
}

u8 ModBusRTUProtocolV1::fingerStop(u8 /*node*/, u8 /*mask*/)
{
    return Failed;
}

u8 ModBusRTUProtocolV1::setFingerPosAbs(u8 node, u8 finger, u16 position, u8 speed)
{
    auto requests = access(node);
    const u16 logical = limits(requests, node, finger).toLogical(position);
    return requests.move(finger, Register::FingerTargetPosition, &logical, &speed, 1).result();
}

u8 ModBusRTUProtocolV1::setFingerPos(u8 node, u8 finger, u16 position, u8 speed)
{
    return access(node).move(finger, Register::FingerTargetPosition, &position, &speed, 1).result();
}

u8 ModBusRTUProtocolV1::setFingerAngle(u8 node, u8 finger, s16 angle, u8 speed)
{
    return access(node).move(finger, Register::FingerTargetAngle, &angle, &speed, 1).result();
}

u8 ModBusRTUProtocolV1::setFingerPosAbsAll(u8 node, const u16* positions, const u8* speeds,
                                           u8 count)
{
    auto requests = access(node);
    const std::vector<PositionLimits> scales = allLimits(requests, node, count);
    std::vector<u16> logical(count);
    std::transform(
        scales.begin(), scales.end(), positions, logical.begin(),
        [](const PositionLimits& scale, u16 position) { return scale.toLogical(position); });
    return requests.move(Thumb, Register::FingerTargetPosition, logical.data(), speeds, count)
        .result();
}

u8 ModBusRTUProtocolV1::setFingerPosAll(u8 node, const u16* positions, const u8* speeds, u8 count)
{
    return access(node)
        .move(Thumb, Register::FingerTargetPosition, positions, speeds, count)
        .result();
}

u8 ModBusRTUProtocolV1::setFingerAngleAll(u8 node, const s16* angles, const u8* speeds, u8 count)
{
    return access(node).move(Thumb, Register::FingerTargetAngle, angles, speeds, count).result();
}

u8 ModBusRTUProtocolV1::setSelfTestLevel(u8 node, u8 level)
{
    return access(node).write(Register::SelfTestLevel, level).result();
}

u8 ModBusRTUProtocolV1::setBeepSwitch(u8 node, u8 on)
{
    return access(node).write(Register::BeepSwitch, on).result();
}

u8 ModBusRTUProtocolV1::beep(u8 node, u16 duration)
{
    return access(node).write(Register::Beep, duration).result();
}

u8 ModBusRTUProtocolV1::setButtonPressedCnt(u8 node, u8 count)
{
    return access(node).write(Register::ButtonCount, count).result();
}

u8 ModBusRTUProtocolV1::startInit(u8 node)
{
    return access(node).write(Register::StartInit, Register::Start).result();
}

/// Reads what the caches do not hold yet. A limit that could not be read is 0.
PositionLimits ModBusRTUProtocolV1::limits(RegisterAccess& requests, u8 node, u8 finger)
{
    const auto cachedLimit = [&](int address, auto& cache) {
        u16 uncached = 0; // for an index beyond the fingers
        u16& limit = finger < FingerCount ? cache[node][finger] : uncached;
        if (limit == 0)
            requests.read(address + finger, &limit);
        return limit;
    };
    const u16 lower = cachedLimit(Register::FingerLowerLimit, m_lowerLimits);
    return {lower, cachedLimit(Register::FingerUpperLimit, m_upperLimits)};
}

std::vector<PositionLimits> ModBusRTUProtocolV1::allLimits(RegisterAccess& requests, u8 node,
                                                           u8 count)
{
    std::vector<PositionLimits> all;
    for (u8 finger = 0; finger < count; ++finger)
        all.push_back(limits(requests, node, finger));
    return all;
}

} // namespace vanto
