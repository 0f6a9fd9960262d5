#include "framecodec.h"

#include <algorithm>
#include <numeric>

namespace simulator
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

quint8 unsignedAt(const QByteArray& bytes, qsizetype offset)
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

std::optional<ReceivedFrame> FrameReceiver::feed(char byte, Moment now)
{
    if (now - m_lastByte > m_idleLimit)
        m_bytes.clear();
    m_lastByte = now;

    const bool atSync2 = m_bytes.size() == 1;
    if (atSync2 && byte != sync2)
        m_bytes.clear();
    if (m_bytes.isEmpty()) {
        if (byte != sync1)
            return std::nullopt;
        m_began = now;
    }
    m_bytes.append(byte);

    if (m_bytes.size() <= LengthAt)
        return std::nullopt;
    const qsizetype length = unsignedAt(m_bytes, LengthAt);
    if (length > maxRequestPayload)
        m_bytes.clear();
    if (m_bytes.size() < length + frameOverhead)
        return std::nullopt;
    return complete();
}

std::optional<ReceivedFrame> FrameReceiver::complete()
{
    const QByteArrayView view(m_bytes);
    ReceivedFrame received;
    received.frame = {unsignedAt(m_bytes, DestinationAt), unsignedAt(m_bytes, SourceAt),
                      unsignedAt(m_bytes, CommandAt),
                      view.sliced(PayloadAt).chopped(1).toByteArray()};
    received.checksumGood = checksum(view.sliced(DestinationAt).chopped(1)) == view.back();
    received.began = m_began;
    received.bytes = std::exchange(m_bytes, {});
    return received;
}

} // namespace simulator
