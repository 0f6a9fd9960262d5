#include "handcommands.h"

#include "fingers.h"
#include "payload.h"

namespace vanto
{

namespace
{
enum Command : u8 {
    GetProtocolVersion = 0x00,
    GetFirmwareVersion = 0x01,
    GetHardwareVersion = 0x02,
    GetCaliData = 0x03,
    GetFingerPID = 0x04,
    GetFingerCurrentLimit = 0x05,
    GetFingerCurrent = 0x06,
    GetFingerForceLimit = 0x07,
    GetFingerForce = 0x08,
    GetFingerPosLimit = 0x09,
    GetFingerPosAbs = 0x0A,
    GetFingerPos = 0x0B,
    GetFingerAngle = 0x0C,
    GetThumbRootPos = 0x0D,
    GetFingerPosAbsAll = 0x0E,
    GetFingerPosAll = 0x0F,
    GetFingerAngleAll = 0x10,
    GetSelfTestLevel = 0x20,
    GetBeepSwitch = 0x21,
    GetButtonPressedCnt = 0x22,
    GetUID = 0x23,
    GetBatteryVoltage = 0x24,
    GetUsageStat = 0x25,
    Reset = 0x40,
    PowerOff = 0x41,
    SetID = 0x42,
    Calibrate = 0x43,
    SetCaliData = 0x44,
    SetFingerPID = 0x45,
    SetFingerCurrentLimit = 0x46,
    SetFingerForceLimit = 0x47,
    SetFingerPosLimit = 0x48,
    FingerStart = 0x49,
    FingerStop = 0x4A,
    SetFingerPosAbs = 0x4B,
    SetFingerPos = 0x4C,
    SetFingerAngle = 0x4D,
    SetFingerPosAbsAll = 0x4F,
    SetFingerPosAll = 0x50,
    SetFingerAngleAll = 0x51,
    SetCustom = 0x5F,
    SetSelfTestLevel = 0x60,
    SetBeepSwitch = 0x61,
    Beep = 0x62,
    SetButtonPressedCnt = 0x63,
    StartInit = 0x64,
};

constexpr std::size_t CaliDataCapacity = 30;
constexpr std::size_t ForceCapacity = 33;
constexpr std::size_t AllFingersCapacity = 24;

/// Sizes of a reply payload in bytes: the capacity, and the minimum that the command requires.
struct ReplySize {
    std::size_t capacity;
    std::size_t layout;
};

/// The hand, and the output for its error number.
struct Link {
    HAND_Context* context;
    u8 node;
    u8* subError;
};

/// One request and its reply; `unpack` receives the payload of a successful reply and returns the
/// result.
template<class Unpack>
u32 exchange(const Link& link, Command command, const RequestPayload& request, ReplySize size,
             Unpack unpack)
{
    const u32 sent = HAND_SendCmd(link.context, link.node, command, request.data(), request.size());
    if (sent != HAND_SUCCESS)
        return sent;
    std::array<u8, HAND_MAX_REPLY_PAYLOAD> reply;
    auto length = static_cast<u8>(size.capacity);
    const u32 result =
        HAND_GetResponse(link.context, link.node, command, link.context->commandTimeout,
                         reply.data(), &length, link.subError);
    if (result != HAND_SUCCESS)
        return result;
    if (length < size.layout)
        return HAND_BAD_ARGUMENT;
    return unpack(ReplyPayload(std::span(reply).first(length)));
}

/// A read command without arguments; the reply holds the outputs in order.
template<class... Out>
u32 read(const Link& link, Command command, Out*... outputs)
{
    constexpr std::size_t size = (sizeof(Out) + ...);
    return exchange(link, command, {}, {size, size}, [&](ReplyPayload reply) -> u32 {
        (reply.take(outputs), ...);
        return HAND_SUCCESS;
    });
}

/// A read command for one finger; the reply begins with the finger's index.
template<class... Out>
u32 readFinger(const Link& link, Command command, u8 finger, Out*... outputs)
{
    constexpr std::size_t size = sizeof(finger) + (sizeof(Out) + ...);
    return exchange(link, command, RequestPayload().put(finger), {size, size},
                    [&](ReplyPayload reply) -> u32 {
                        if (reply.take<u8>() != finger)
                            return HAND_BAD_ARGUMENT;
                        (reply.take(outputs), ...);
                        return HAND_SUCCESS;
                    });
}

/// Reads the target and current values of the first `count` fingers.
template<class T>
u32 readAll(const Link& link, Command command, T* targets, T* currents, u8 count)
{
    const std::size_t layout = 2 * sizeof(T) * count;
    return exchange(link, command, RequestPayload().put(count), {AllFingersCapacity, layout},
                    [&](ReplyPayload reply) -> u32 {
                        reply.take(targets, count);
                        reply.take(currents, count);
                        return HAND_SUCCESS;
                    });
}

/// Any reply payload is accepted and ignored.
u32 finish(const Link& link, Command command, const RequestPayload& request)
{
    const u32 sent = HAND_SendCmd(link.context, link.node, command, request.data(), request.size());
    if (sent != HAND_SUCCESS)
        return sent;
    return HAND_GetResponse(link.context, link.node, command, link.context->commandTimeout, nullptr,
                            nullptr, link.subError);
}

/// A command whose payload is its arguments in order.
template<class... In>
u32 write(const Link& link, Command command, In... arguments)
{
    RequestPayload request;
    (request.put(arguments), ...);
    return finish(link, command, request);
}

/// Moves the first `count` fingers; the payload holds value and speed of each in turn.
template<class T>
u32 writeAll(const Link& link, Command command, const T* values, const u8* speeds, u8 count)
{
    if (count > FingerCount)
        return HAND_BAD_ARGUMENT;
    RequestPayload request;
    request.put(count);
    for (std::size_t i = 0; i < count; ++i)
        request.put(values[i]).put(speeds[i]);
    return finish(link, command, request);
}
} // namespace

u32 HAND_GetProtocolVersion(HAND_Context* c, u8 node, u8* major, u8* minor, u8* subError)
{
    return read({c, node, subError}, GetProtocolVersion, minor, major);
}

u32 HAND_GetFirmwareVersion(HAND_Context* c, u8 node, u8* major, u8* minor, u16* revision,
                            u8* subError)
{
    constexpr std::size_t longForm = 4;
    constexpr std::size_t shortForm = 2; // older hands have no revision
    return exchange({c, node, subError}, GetFirmwareVersion, {}, {longForm, shortForm},
                    [&](ReplyPayload reply) -> u32 {
                        const u16 received = reply.size() == longForm ? reply.take<u16>() : u16{0};
                        if (revision)
                            *revision = received;
                        reply.take(minor);
                        reply.take(major);
                        return HAND_SUCCESS;
                    });
}

u32 HAND_GetHardwareVersion(HAND_Context* c, u8 node, u8* major, u8* minor, u16* revision,
                            u8* subError)
{
    // The revision is the protocol's only big-endian number.
    u8 high = 0;
    u8 low = 0;
    const u32 result = read({c, node, subError}, GetHardwareVersion, major, minor, &high, &low);
    if (result == HAND_SUCCESS && revision)
        *revision = static_cast<u16>(high << 8 | low);
    return result;
}

u32 HAND_GetCaliData(HAND_Context* c, u8 node, u16* firstRange, u16* secondRange, u8 fingerCount,
                     u16* thumbRoot, u8 thumbRootCount, u8* subError)
{
    const std::size_t layout = sizeof(u16) * (2U * fingerCount + thumbRootCount);
    return exchange({c, node, subError}, GetCaliData,
                    RequestPayload().put(fingerCount).put(thumbRootCount),
                    {CaliDataCapacity, layout}, [&](ReplyPayload reply) -> u32 {
                        reply.take(firstRange, fingerCount);
                        reply.take(secondRange, fingerCount);
                        reply.take(thumbRoot, thumbRootCount);
                        return HAND_SUCCESS;
                    });
}

u32 HAND_GetFingerPID(HAND_Context* c, u8 node, u8 finger, float* p, float* i, float* d, float* g,
                      u8* subError)
{
    return readFinger({c, node, subError}, GetFingerPID, finger, p, i, d, g);
}

u32 HAND_GetFingerCurrentLimit(HAND_Context* c, u8 node, u8 finger, u16* limit, u8* subError)
{
    return readFinger({c, node, subError}, GetFingerCurrentLimit, finger, limit);
}

u32 HAND_GetFingerCurrent(HAND_Context* c, u8 node, u8 finger, u16* current, u8* subError)
{
    return readFinger({c, node, subError}, GetFingerCurrent, finger, current);
}

u32 HAND_GetFingerForceLimit(HAND_Context* c, u8 node, u8 finger, u16* limit, u8* subError)
{
    return readFinger({c, node, subError}, GetFingerForceLimit, finger, limit);
}

u32 HAND_GetFingerForce(HAND_Context* c, u8 node, u8 finger, u16* forces, u8 count, u8* subError)
{
    const std::size_t layout = sizeof(finger) + sizeof(u16) * count;
    return exchange({c, node, subError}, GetFingerForce, RequestPayload().put(finger).put(count),
                    {ForceCapacity, layout}, [&](ReplyPayload reply) -> u32 {
                        if (reply.take<u8>() != finger)
                            return HAND_BAD_ARGUMENT;
                        reply.take(forces, count);
                        return HAND_SUCCESS;
                    });
}

u32 HAND_GetFingerPosLimit(HAND_Context* c, u8 node, u8 finger, u16* lower, u16* upper,
                           u8* subError)
{
    return readFinger({c, node, subError}, GetFingerPosLimit, finger, lower, upper);
}

u32 HAND_GetFingerPosAbs(HAND_Context* c, u8 node, u8 finger, u16* target, u16* current,
                         u8* subError)
{
    return readFinger({c, node, subError}, GetFingerPosAbs, finger, target, current);
}

u32 HAND_GetFingerPos(HAND_Context* c, u8 node, u8 finger, u16* target, u16* current, u8* subError)
{
    return readFinger({c, node, subError}, GetFingerPos, finger, target, current);
}

u32 HAND_GetFingerAngle(HAND_Context* c, u8 node, u8 finger, s16* target, s16* current,
                        u8* subError)
{
    return readFinger({c, node, subError}, GetFingerAngle, finger, target, current);
}

u32 HAND_GetThumbRootPos(HAND_Context* c, u8 node, u16* position, u8* index, u8* subError)
{
    return read({c, node, subError}, GetThumbRootPos, position, index);
}

u32 HAND_GetFingerPosAbsAll(HAND_Context* c, u8 node, u16* targets, u16* currents, u8 count,
                            u8* subError)
{
    return readAll({c, node, subError}, GetFingerPosAbsAll, targets, currents, count);
}

u32 HAND_GetFingerPosAll(HAND_Context* c, u8 node, u16* targets, u16* currents, u8 count,
                         u8* subError)
{
    return readAll({c, node, subError}, GetFingerPosAll, targets, currents, count);
}

u32 HAND_GetFingerAngleAll(HAND_Context* c, u8 node, s16* targets, s16* currents, u8 count,
                           u8* subError)
{
    return readAll({c, node, subError}, GetFingerAngleAll, targets, currents, count);
}

u32 HAND_GetSelfTestLevel(HAND_Context* c, u8 node, u8* level, u8* subError)
{
    return read({c, node, subError}, GetSelfTestLevel, level);
}

u32 HAND_GetBeepSwitch(HAND_Context* c, u8 node, u8* on, u8* subError)
{
    return read({c, node, subError}, GetBeepSwitch, on);
}

u32 HAND_GetButtonPressedCnt(HAND_Context* c, u8 node, u8* count, u8* subError)
{
    return read({c, node, subError}, GetButtonPressedCnt, count);
}

u32 HAND_GetUID(HAND_Context* c, u8 node, u32* word0, u32* word1, u32* word2, u8* subError)
{
    return read({c, node, subError}, GetUID, word0, word1, word2);
}

u32 HAND_GetBatteryVoltage(HAND_Context* c, u8 node, u16* voltage, u8* subError)
{
    return read({c, node, subError}, GetBatteryVoltage, voltage);
}

u32 HAND_GetUsageStat(HAND_Context* c, u8 node, u32* total, u32* perFinger, u8 count, u8* subError)
{
    if (count > FingerCount)
        return HAND_BAD_ARGUMENT;
    constexpr std::size_t size = sizeof(u32) * (1 + FingerCount);
    return exchange({c, node, subError}, GetUsageStat, RequestPayload().put(count), {size, size},
                    [&](ReplyPayload reply) -> u32 {
                        reply.take(total);
                        reply.take(perFinger, FingerCount);
                        return HAND_SUCCESS;
                    });
}

u32 HAND_Reset(HAND_Context* c, u8 node, u8 mode, u8* subError)
{
    return write({c, node, subError}, Reset, mode);
}

u32 HAND_PowerOff(HAND_Context* c, u8 node, u8* subError)
{
    return write({c, node, subError}, PowerOff);
}

u32 HAND_SetID(HAND_Context* c, u8 node, u8 newNode, u8* subError)
{
    return write({c, node, subError}, SetID, newNode);
}

u32 HAND_Calibrate(HAND_Context* c, u8 node, u16 key, u8* subError)
{
    return write({c, node, subError}, Calibrate, key);
}

u32 HAND_SetCaliData(HAND_Context* c, u8 node, const u16* firstRange, const u16* secondRange,
                     u16 fingerCount, const u16* thumbRoot, u16 thumbRootCount, u8* subError)
{
    const std::size_t length = 2 + sizeof(u16) * (2U * fingerCount + thumbRootCount);
    if (length > HAND_MAX_REQUEST_PAYLOAD)
        return HAND_SendCmd(c, node, SetCaliData, nullptr, length); // refused, arrays not read
    RequestPayload request;
    request.put(static_cast<u8>(fingerCount));
    request.put(std::span(firstRange, fingerCount)).put(std::span(secondRange, fingerCount));
    request.put(static_cast<u8>(thumbRootCount)).put(std::span(thumbRoot, thumbRootCount));
    return finish({c, node, subError}, SetCaliData, request);
}

u32 HAND_SetFingerPID(HAND_Context* c, u8 node, u8 finger, float p, float i, float d, float g,
                      u8* subError)
{
    return write({c, node, subError}, SetFingerPID, finger, p, i, d, g);
}

u32 HAND_SetFingerCurrentLimit(HAND_Context* c, u8 node, u8 finger, u16 limit, u8* subError)
{
    return write({c, node, subError}, SetFingerCurrentLimit, finger, limit);
}

u32 HAND_SetFingerForceLimit(HAND_Context* c, u8 node, u8 finger, u16 limit, u8* subError)
{
    return write({c, node, subError}, SetFingerForceLimit, finger, limit);
}

u32 HAND_SetFingerPosLimit(HAND_Context* c, u8 node, u8 finger, u16 lower, u16 upper, u8* subError)
{
    return write({c, node, subError}, SetFingerPosLimit, finger, lower, upper);
}

u32 HAND_FingerStart(HAND_Context* c, u8 node, u8 mask, u8* subError)
{
    return write({c, node, subError}, FingerStart, mask);
}

u32 HAND_FingerStop(HAND_Context* c, u8 node, u8 mask, u8* subError)
{
    return write({c, node, subError}, FingerStop, mask);
}

u32 HAND_SetFingerPosAbs(HAND_Context* c, u8 node, u8 finger, u16 position, u8 speed, u8* subError)
{
    return write({c, node, subError}, SetFingerPosAbs, finger, position, speed);
}

u32 HAND_SetFingerPos(HAND_Context* c, u8 node, u8 finger, u16 position, u8 speed, u8* subError)
{
    return write({c, node, subError}, SetFingerPos, finger, position, speed);
}

u32 HAND_SetFingerAngle(HAND_Context* c, u8 node, u8 finger, s16 angle, u8 speed, u8* subError)
{
    return write({c, node, subError}, SetFingerAngle, finger, angle, speed);
}

u32 HAND_SetFingerPosAbsAll(HAND_Context* c, u8 node, const u16* positions, const u8* speeds,
                            u8 count, u8* subError)
{
    return writeAll({c, node, subError}, SetFingerPosAbsAll, positions, speeds, count);
}

u32 HAND_SetFingerPosAll(HAND_Context* c, u8 node, const u16* positions, const u8* speeds, u8 count,
                         u8* subError)
{
    return writeAll({c, node, subError}, SetFingerPosAll, positions, speeds, count);
}

u32 HAND_SetFingerAngleAll(HAND_Context* c, u8 node, const s16* angles, const u8* speeds, u8 count,
                           u8* subError)
{
    return writeAll({c, node, subError}, SetFingerAngleAll, angles, speeds, count);
}

u32 HAND_SetCustom(HAND_Context* c, u8 node, u8* buffer, u8 length, u8* replyLength, u8* subError)
{
    const u32 sent = HAND_SendCmd(c, node, SetCustom, buffer, length);
    if (sent != HAND_SUCCESS)
        return sent;
    return HAND_GetResponse(c, node, SetCustom, c->commandTimeout, buffer, replyLength, subError);
}

u32 HAND_SetSelfTestLevel(HAND_Context* c, u8 node, u8 level, u8* subError)
{
    return write({c, node, subError}, SetSelfTestLevel, level);
}

u32 HAND_SetBeepSwitch(HAND_Context* c, u8 node, u8 on, u8* subError)
{
    return write({c, node, subError}, SetBeepSwitch, on);
}

u32 HAND_Beep(HAND_Context* c, u8 node, u16 duration, u8* subError)
{
    return write({c, node, subError}, Beep, duration);
}

u32 HAND_SetButtonPressedCnt(HAND_Context* c, u8 node, u8 count, u8* subError)
{
    return write({c, node, subError}, SetButtonPressedCnt, count);
}

u32 HAND_StartInit(HAND_Context* c, u8 node, u8* subError)
{
    return write({c, node, subError}, StartInit);
}

} // namespace vanto
