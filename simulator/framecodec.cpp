#include "framecodec.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace vanto::simulator
{
namespace
{
constexpr char sync1 = 0x55;
constexpr char sync2 = static_cast<char>(0xAA);

enum Offset : qsizetype {
    DestinationAt = 2,
    SourceAt = 3,
    CommandAt = 4,
    LengthAt = 5,
    PayloadAt = 6,
};
constexpr qsizetype frameOverhead = 7;
constexpr qsizetype maxRequestPayload = 63;

quint8 unsignedAt(QByteArrayView bytes, qsizetype offset)
{
    return static_cast<quint8>(bytes.at(offset));
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
    bytes.reserve(frame.payload.size() + frameOverhead);
    bytes.append(sync1).append(sync2);
    bytes.append(static_cast<char>(frame.destination)).append(static_cast<char>(frame.source));
    bytes.append(static_cast<char>(frame.command)).append(static_cast<char>(frame.payload.size()));
    bytes.append(frame.payload);
    bytes.append(checksum(QByteArrayView(bytes).sliced(DestinationAt)));
    return bytes;
}

std::optional<qsizetype> serialCtrlRequestLength(QByteArrayView start)
{
    constexpr std::array sync{sync1, sync2};
    const QByteArrayView wanted(sync.data(), std::min<qsizetype>(start.size(), sync.size()));
    if (!start.startsWith(wanted))
        return std::nullopt;
    if (start.size() <= LengthAt)
        return 0;
    const qsizetype length = unsignedAt(start, LengthAt);
    if (length > maxRequestPayload)
        return std::nullopt;
    return length + frameOverhead;
}

Frame decode(QByteArrayView bytes)
{
    return {unsignedAt(bytes, DestinationAt), unsignedAt(bytes, SourceAt),
            unsignedAt(bytes, CommandAt), bytes.sliced(PayloadAt).chopped(1).toByteArray()};
}

} // namespace vanto::simulator
