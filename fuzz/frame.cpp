#include "fuzz.h"
#include "handcalls.h"

#include <functional>
#include <numeric>
#include <utility>

namespace vanto
{

// Input: the mode of the link, then for each exchange
//   | call | arrival | length | received bytes | null outputs | node | arguments |

namespace
{
constexpr u8 OwnAddress = 1;
constexpr std::array<u8, 2> Sync{0x55, 0xAA};
constexpr u8 ErrorBit = 0x80;
/// Offsets in a frame without sync bytes.
constexpr std::size_t DestinationOffset = 0;
constexpr std::size_t CommandOffset = 2;
constexpr std::size_t LengthOffset = 3;
constexpr std::size_t Overhead = 5;

enum Arrival : u8 {
    Raw,     ///< unchanged
    Framed,  ///< as the payload of a valid reply
    Refusal, ///< as the payload of an error reply
    Early,   ///< before the request
    ArrivalCount,
};

/// A serial link in memory. Its clock soon wraps, and skips to the deadline when no bytes are left.
struct Link {
    explicit Link(u32 mode)
        : context(HAND_CreateContext(this, mode, OwnAddress, send, poll), HAND_FreeContext)
    {
        HAND_SetTimerFunction([] { return now; }, [](u32 ms) { now += ms; });
        now = 0U - HAND_DEFAULT_TIMEOUT_MS;
    }

    static int send(u8 node, const u8* data, u32 length, HAND_Context* c)
    {
        auto& link = *static_cast<Link*>(c->user);
        const auto frame = std::span(data, length).subspan(link.syncSize());
        check(frame.size() >= Overhead && frame[DestinationOffset] == node &&
                  frame[LengthOffset] + Overhead == frame.size(),
              "a request is not a frame");
        if (link.arrival == Framed)
            link.frameIncoming(node, frame[CommandOffset]);
        else if (link.arrival == Refusal)
            link.frameIncoming(node, frame[CommandOffset] | ErrorBit);
        return 0;
    }

    static int poll(HAND_Context* c)
    {
        const auto bytes = std::exchange(static_cast<Link*>(c->user)->incoming, {});
        for (const u8 byte : bytes)
            HAND_OnData(c, byte);
        if (bytes.empty())
            now += c->commandTimeout;
        return 0;
    }

    std::size_t syncSize() const { return context->mode == HAND_MODE_SYNC ? Sync.size() : 0; }

    void frameIncoming(u8 node, int command)
    {
        std::vector<u8> reply{OwnAddress, node, static_cast<u8>(command),
                              static_cast<u8>(incoming.size())};
        reply.insert(reply.end(), incoming.begin(), incoming.end());
        reply.push_back(std::accumulate(reply.begin(), reply.end(), u8{0}, std::bit_xor<u8>()));
        reply.insert(reply.begin(), Sync.begin(), Sync.begin() + syncSize());
        incoming = std::move(reply);
    }

    std::unique_ptr<HAND_Context, void (*)(HAND_Context*)> context;
    std::vector<u8> incoming;
    Arrival arrival = Raw;
    static inline u32 now = 0;
};

void exchange(Link& link, ByteSource& source, u8 fill, std::vector<u8>& transcript)
{
    const HandCall call = handCalls()[source.take() % handCalls().size()];
    link.arrival = static_cast<Arrival>(source.take() % ArrivalCount);
    const auto bytes = source.take(source.take());
    link.incoming.assign(bytes.begin(), bytes.end());
    if (link.arrival == Early) {
        for (const u8 byte : std::exchange(link.incoming, {}))
            HAND_OnData(link.context.get(), byte);
    }
    CallArguments arguments(source, fill);
    const u32 result = call(link.context.get(), arguments);
    check(result <= HAND_BAD_ARGUMENT || result == HAND_REFUSED, "an undefined result");
    check(result == HAND_SUCCESS || arguments.outputsUntouched(), "output written on failure");
    check(result == HAND_REFUSED || arguments.subErrorUntouched(), "a sub error without a refusal");
    transcript.push_back(static_cast<u8>(result));
    if (result == HAND_SUCCESS)
        arguments.appendOutputs(transcript);
    if (result == HAND_REFUSED)
        transcript.push_back(*arguments.subError());
}

/// Returns all results and outputs. Buffers contain `fill` where nothing was received.
std::vector<u8> runExchanges(ByteSource source, u8 fill)
{
    Link link(source.take() % 2 == 0 ? HAND_MODE_SYNC : HAND_MODE_BARE);
    link.context->receive.fill(fill);
    std::vector<u8> transcript;
    while (!source.isEmpty())
        exchange(link, source, fill, transcript);
    return transcript;
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteSource source(std::span(data, size));
    check(runExchanges(source, 0x33) == runExchanges(source, 0xCC),
          "an output contains bytes that were not received");
    return 0;
}

} // namespace vanto
