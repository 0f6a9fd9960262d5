#include "framecodec.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace vanto::simulator
{
namespace
{
constexpr char Sync1 = 0x55;
constexpr char Sync2 = static_cast<char>(0xAA);

enum Offset : qsizetype {
    DestinationOffset = 2,
    SourceOffset = 3,
    CommandOffset = 4,
    LengthOffset = 5,
    PayloadOffset = 6,
};
constexpr qsizetype FrameOverhead = 7;
constexpr qsizetype MaxRequestPayload = 63;
constexpr char FlippedChecksumBits = 0x24;

std::uint8_t byteAt(QByteArrayView bytes, qsizetype offset)
{
    return static_cast<std::uint8_t>(bytes.at(offset));
}

char checksum(QByteArrayView covered)
{
    return std::accumulate(covered.begin(), covered.end(), char{0},
                           [](char sum, char byte) { return static_cast<char>(sum ^ byte); });
}
} // namespace

QByteArray encode(const Frame& frame)
{
    QByteArray bytes;
    bytes.reserve(frame.payload.size() + FrameOverhead);
    bytes.append(Sync1).append(Sync2);
    bytes.append(static_cast<char>(frame.destination)).append(static_cast<char>(frame.source));
    bytes.append(static_cast<char>(frame.command)).append(static_cast<char>(frame.payload.size()));
    bytes.append(frame.payload);
    bytes.append(checksum(QByteArrayView(bytes).sliced(DestinationOffset)));
    return bytes;
}

/// A 0 bit of any hand hides the 1 bits of the others, and an idle line carries 1 bits.
QByteArray mixed(const QList<QByteArray>& replies)
{
    QByteArray bytes;
    for (const QByteArray& reply : replies) {
        const qsizetype shared = std::min(bytes.size(), reply.size());
        for (qsizetype i = 0; i < shared; ++i)
            bytes[i] = static_cast<char>(bytes[i] & reply[i]);
        bytes += reply.sliced(shared);
    }
    // By chance the mix can be valid, e.g. that of the nodes 2 and 3.
    const qsizetype checksumAt = PayloadOffset + byteAt(bytes, LengthOffset);
    const auto covered = QByteArrayView(bytes).sliced(DestinationOffset);
    if (checksumAt < bytes.size() &&
        bytes[checksumAt] == checksum(covered.first(checksumAt - DestinationOffset)))
        bytes[checksumAt] = static_cast<char>(bytes[checksumAt] ^ FlippedChecksumBits);
    return bytes;
}

std::optional<qsizetype> serialCtrlRequestLength(QByteArrayView start)
{
    constexpr std::array sync{Sync1, Sync2};
    const QByteArrayView expected(sync.data(), std::min<qsizetype>(start.size(), sync.size()));
    if (!start.startsWith(expected))
        return std::nullopt;
    if (start.size() <= LengthOffset)
        return 0;
    const qsizetype length = byteAt(start, LengthOffset);
    if (length > MaxRequestPayload)
        return std::nullopt;
    return length + FrameOverhead;
}

Frame decode(QByteArrayView bytes)
{
    return {byteAt(bytes, DestinationOffset), byteAt(bytes, SourceOffset),
            byteAt(bytes, CommandOffset), bytes.sliced(PayloadOffset).chopped(1).toByteArray()};
}

} // namespace vanto::simulator
