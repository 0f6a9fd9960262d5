#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vanto
{

// VantoSerialAPI, frame layer: frames requests, feeds received bytes through a state machine and
// waits for the matching reply. It owns no port and no thread.
//
//   | 0x55 | 0xAA | destination | source | command | length N | payload, N bytes | checksum |
//
// The checksum is the XOR of everything between the sync bytes and itself. Multi-byte numbers are
// little-endian. A request carries at most 63 payload bytes, a reply 64. A hand that refuses a
// command answers with bit 7 of the command set and its own error number as first payload byte.
//
// Possible errors on the wire: no reply, half a frame, a wrong checksum, a frame for another host,
// a reply from another node or to another command, a payload longer or shorter than that of the
// command. Frames carry no sequence number, so a reply is matched by node and command alone; the
// sender must discard earlier bytes first.

struct HAND_Context;

/// Sends one request. The result is ignored.
using HAND_SendFunction = int (*)(std::uint8_t node, const std::uint8_t* data, std::uint32_t length,
                                  HAND_Context* context);
/// Passes received bytes to HAND_OnData. The result is ignored.
using HAND_PollFunction = int (*)(HAND_Context* context);
using HAND_TickFunction = std::uint32_t (*)();
using HAND_DelayFunction = void (*)(std::uint32_t milliseconds);

/// Codes in the low byte of a result.
enum HAND_Result : std::uint32_t {
    HAND_SUCCESS = 0x00,
    HAND_CHECKSUM_WRONG = 0x01, ///< or: timer functions not set
    HAND_NO_CONTEXT = 0x02,     ///< or: no send function
    HAND_TIMEOUT = 0x03,
    HAND_REPLY_TOO_LONG = 0x04,
    HAND_WRONG_NODE = 0x05,
    HAND_WRONG_COMMAND = 0x06,
    HAND_REQUEST_TOO_LONG = 0x07,
    HAND_BAD_ARGUMENT = 0x08, ///< or: the reply does not fit the request or the command's layout
    HAND_REFUSED = 0xFF,      ///< the hand answered with an error of its own
};

inline constexpr std::uint8_t HAND_ANY_NODE = 0xFF;
inline constexpr std::size_t HAND_MAX_REQUEST_PAYLOAD = 63;
inline constexpr std::size_t HAND_MAX_REPLY_PAYLOAD = 64;
inline constexpr std::uint16_t HAND_DEFAULT_TIMEOUT_MS = 255;

/// Frames with or without sync bytes, in both directions.
enum HAND_Mode : std::uint32_t { HAND_MODE_SYNC = 0, HAND_MODE_BARE = 1 };

/// State of one link. One request and its reply at a time.
struct HAND_Context {
    void* user;
    std::uint8_t ownAddress;
    std::uint32_t mode;
    std::uint32_t initialState;
    std::uint16_t commandTimeout; ///< ms
    std::uint8_t replyReady;
    std::uint32_t state;
    std::array<std::uint8_t, 4 + HAND_MAX_REPLY_PAYLOAD + 1> receive;
    std::array<std::uint8_t, 6 + HAND_MAX_REQUEST_PAYLOAD + 1> transmit;
    std::uint8_t remaining; ///< payload bytes still expected
    HAND_SendFunction send;
    HAND_PollFunction poll;
};

/// Returns null if out of memory. The caller frees the context.
HAND_Context* HAND_CreateContext(void* user, std::uint32_t mode, std::uint8_t ownAddress,
                                 HAND_SendFunction send, HAND_PollFunction poll);
void HAND_FreeContext(HAND_Context* context);

/// Process-wide. Every command fails until both are set.
void HAND_SetTimerFunction(HAND_TickFunction tick, HAND_DelayFunction delay);
/// The current tick in ms, 0 without a tick function.
std::uint32_t HAND_GetTick();
void HAND_SetCommandTimeOut(HAND_Context* context, std::uint16_t milliseconds);

std::uint32_t HAND_SendCmd(HAND_Context* context, std::uint8_t node, std::uint8_t command,
                           const std::uint8_t* payload, std::size_t length);
void HAND_OnData(HAND_Context* context, std::uint8_t byte);
/// Waits for the reply. `length`: capacity of `reply` in, received payload length out.
std::uint32_t HAND_GetResponse(HAND_Context* context, std::uint8_t node, std::uint8_t command,
                               std::uint16_t timeoutMs, std::uint8_t* reply, std::uint8_t* length,
                               std::uint8_t* subError);

} // namespace vanto
