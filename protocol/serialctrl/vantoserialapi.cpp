#include "vantoserialapi.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <numeric>
#include <span>

namespace vanto
{

namespace
{
HAND_TickFunction _get_milli_seconds_impl = nullptr;
HAND_DelayFunction _delay_milli_seconds_impl = nullptr;

bool timersSet()
{
    return _get_milli_seconds_impl && _delay_milli_seconds_impl;
}

constexpr std::uint8_t Sync1 = 0x55;
constexpr std::uint8_t Sync2 = 0xAA;
constexpr std::uint8_t ErrorBit = 0x80;
constexpr std::uint32_t PollIntervalMs = 1;

constexpr std::size_t SyncSize = 2;
constexpr std::size_t HeaderSize = 4; ///< destination, source, command, length
/// Offsets in the receive buffer.
constexpr std::size_t AtDestination = 0;
constexpr std::size_t AtSource = 1;
constexpr std::size_t AtCommand = 2;
constexpr std::size_t AtLength = 3;

enum ReceiveState : std::uint32_t {
    AwaitSync1,
    AwaitSync2,
    AwaitDestination,
    AwaitSource,
    AwaitCommand,
    AwaitLength,
    AwaitPayload,
    AwaitChecksum,
};

std::uint8_t checksum(std::span<const std::uint8_t> bytes)
{
    return std::accumulate(
        bytes.begin(), bytes.end(), std::uint8_t{0},
        [](std::uint8_t sum, std::uint8_t byte) { return static_cast<std::uint8_t>(sum ^ byte); });
}

std::uint8_t receivedLength(const HAND_Context& context)
{
    return context.receive[AtLength];
}

void acceptLength(HAND_Context& context, std::uint8_t length)
{
    if (length > HAND_MAX_REPLY_PAYLOAD) {
        context.state = context.initialState;
        return;
    }
    context.receive[AtLength] = length;
    context.remaining = length;
    context.state = length == 0 ? AwaitChecksum : AwaitPayload;
}

void acceptPayload(HAND_Context& context, std::uint8_t byte)
{
    context.receive[HeaderSize + receivedLength(context) - context.remaining] = byte;
    if (--context.remaining == 0)
        context.state = AwaitChecksum;
}

void acceptChecksum(HAND_Context& context, std::uint8_t byte)
{
    context.receive[HeaderSize + receivedLength(context)] = byte;
    if (context.receive[AtDestination] == context.ownAddress)
        context.replyReady = 1;
    context.state = context.initialState;
}

/// Returns false if no frame is complete by the deadline.
bool awaitReply(HAND_Context& context, std::uint16_t timeoutMs)
{
    const std::uint32_t deadline = _get_milli_seconds_impl() + timeoutMs;
    while (!context.replyReady) {
        _delay_milli_seconds_impl(PollIntervalMs);
        if (context.poll)
            context.poll(&context);
        // A difference, so that neither the wrap-around of the tick after 49.7 days nor a clock
        // that is set back matters.
        const auto late = static_cast<std::int32_t>(_get_milli_seconds_impl() - deadline);
        if (late > 0 || late < -std::int32_t{timeoutMs}) {
            context.state = context.initialState;
            return false;
        }
    }
    return true;
}

std::uint32_t collectPayload(HAND_Context& context, std::uint8_t* reply, std::uint8_t* length)
{
    context.replyReady = 0;
    if (!reply || !length)
        return HAND_SUCCESS;
    const std::uint8_t capacity = *length;
    *length = receivedLength(context);
    if (capacity < *length)
        return HAND_REPLY_TOO_LONG;
    std::copy_n(context.receive.begin() + HeaderSize, *length, reply);
    return HAND_SUCCESS;
}
} // namespace

HAND_Context* HAND_CreateContext(void* user, std::uint32_t mode, std::uint8_t ownAddress,
                                 HAND_SendFunction send, HAND_PollFunction poll)
{
    void* memory = std::malloc(sizeof(HAND_Context));
    if (!memory)
        return nullptr;
    auto* context = new (memory) HAND_Context{};
    context->user = user;
    context->ownAddress = ownAddress;
    context->mode = mode;
    context->initialState = mode == HAND_MODE_BARE ? AwaitDestination : AwaitSync1;
    context->commandTimeout = HAND_DEFAULT_TIMEOUT_MS;
    context->state = context->initialState;
    context->send = send;
    context->poll = poll;
    return context;
}

void HAND_FreeContext(HAND_Context* context)
{
    std::free(context);
}

void HAND_SetTimerFunction(HAND_TickFunction tick, HAND_DelayFunction delay)
{
    _get_milli_seconds_impl = tick;
    _delay_milli_seconds_impl = delay;
}

std::uint32_t HAND_GetTick()
{
    return _get_milli_seconds_impl ? _get_milli_seconds_impl() : 0;
}

void HAND_SetCommandTimeOut(HAND_Context* context, std::uint16_t milliseconds)
{
    if (context)
        context->commandTimeout = milliseconds;
}

std::uint32_t HAND_SendCmd(HAND_Context* context, std::uint8_t node, std::uint8_t command,
                           const std::uint8_t* payload, std::size_t length)
{
    if (!context || !context->send)
        return HAND_NO_CONTEXT;
    if (!timersSet())
        return HAND_CHECKSUM_WRONG;
    if (length > HAND_MAX_REQUEST_PAYLOAD)
        return HAND_REQUEST_TOO_LONG;

    auto& frame = context->transmit;
    frame[0] = Sync1;
    frame[1] = Sync2;
    frame[2] = node;
    frame[3] = context->ownAddress;
    frame[4] = command;
    frame[5] = static_cast<std::uint8_t>(length);
    std::copy_n(payload, length, frame.begin() + SyncSize + HeaderSize);
    const auto summed = std::span(frame).subspan(SyncSize, HeaderSize + length);
    frame[SyncSize + summed.size()] = checksum(summed);

    context->replyReady = 0;
    context->state = context->initialState;
    const auto size = static_cast<std::uint32_t>(summed.size() + 1);
    if (context->mode == HAND_MODE_SYNC)
        context->send(node, frame.data(), size + SyncSize, context);
    else if (context->mode == HAND_MODE_BARE)
        context->send(node, frame.data() + SyncSize, size, context);
    return HAND_SUCCESS;
}

void HAND_OnData(HAND_Context* context, std::uint8_t byte)
{
    if (!context || context->replyReady)
        return;
    switch (context->state) {
    case AwaitSync1:
        context->state = byte == Sync1 ? AwaitSync2 : AwaitSync1;
        break;
    case AwaitSync2:
        // A second 0x55 does not keep the receiver waiting for 0xAA: 55 55 AA starts no frame.
        context->state = byte == Sync2 ? AwaitDestination : AwaitSync1;
        break;
    case AwaitDestination:
        context->receive[AtDestination] = byte;
        context->state = AwaitSource;
        break;
    case AwaitSource:
        context->receive[AtSource] = byte;
        context->state = AwaitCommand;
        break;
    case AwaitCommand:
        context->receive[AtCommand] = byte;
        context->state = AwaitLength;
        break;
    case AwaitLength:
        acceptLength(*context, byte);
        break;
    case AwaitPayload:
        acceptPayload(*context, byte);
        break;
    case AwaitChecksum:
        acceptChecksum(*context, byte);
        break;
    default:
        context->state = context->initialState;
    }
}

std::uint32_t HAND_GetResponse(HAND_Context* context, std::uint8_t node, std::uint8_t command,
                               std::uint16_t timeoutMs, std::uint8_t* reply, std::uint8_t* length,
                               std::uint8_t* subError)
{
    if (!context)
        return HAND_NO_CONTEXT;
    if (!timersSet())
        return HAND_CHECKSUM_WRONG;
    if (!awaitReply(*context, timeoutMs))
        return HAND_TIMEOUT;

    const auto& received = context->receive;
    const auto summed = std::span(received).first(HeaderSize + receivedLength(*context));
    if (checksum(summed) != received[summed.size()]) {
        context->replyReady = 0;
        return HAND_CHECKSUM_WRONG;
    }
    if (received[AtCommand] & ErrorBit) {
        // The reply stays ready, so that further bytes are dropped until the next request.
        if (subError)
            *subError = receivedLength(*context) > 0 ? received[HeaderSize] : std::uint8_t{0};
        return HAND_REFUSED;
    }
    if (node != HAND_ANY_NODE && received[AtSource] != node) {
        context->replyReady = 0;
        return HAND_WRONG_NODE;
    }
    if (received[AtCommand] != command) {
        context->replyReady = 0;
        return HAND_WRONG_COMMAND;
    }
    return collectPayload(*context, reply, length);
}

} // namespace vanto
