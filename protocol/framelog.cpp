#include "framelog.h"

#include <QDateTime>
#include <QStringList>
#include <QTimeZone>

#include <algorithm>

namespace vanto
{

namespace
{
/// Where the key of the command "calibrate" begins; a checksum follows it.
std::size_t keyOffset(PROTOCOL_TYPE protocol)
{
    return protocol == PROTOCOL_TYPE_SERIALCTRL ? 6 : 4;
}

/// The bytes before the key: of SerialCtrl the command, of Modbus function and register, also in
/// the reply, which repeats the request.
bool hasCalibrationKey(FrameLog::Direction direction, PROTOCOL_TYPE protocol,
                       std::span<const std::uint8_t> bytes)
{
    if (bytes.size() <= keyOffset(protocol))
        return false;
    if (protocol == PROTOCOL_TYPE_SERIALCTRL)
        return direction == FrameLog::Direction::Sent && bytes[4] == 0x43;
    return bytes[1] == 0x06 && bytes[2] == 0x03 && bytes[3] == 0xF4;
}
} // namespace

std::span<const std::uint8_t> FrameLog::Frame::bytes() const
{
    return std::span(data).first(std::min<std::size_t>(length, MaxBytes));
}

QString FrameLog::Frame::text() const
{
    using namespace std::chrono;
    constexpr int usDigits = 6;
    const auto sinceEpoch = duration_cast<microseconds>(time.time_since_epoch());
    const auto fraction = sinceEpoch % seconds(1);
    QString line =
        QDateTime::fromSecsSinceEpoch(duration_cast<seconds>(sinceEpoch).count(), QTimeZone::utc())
            .toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) +
        QStringLiteral(".%1Z %2 %3")
            .arg(fraction.count(), usDigits, 10, QLatin1Char('0'))
            .arg(QLatin1String(protocol == PROTOCOL_TYPE_SERIALCTRL ? "SerialCtrl" : "ModBus-RTU"),
                 QLatin1String(direction == Direction::Sent ? "tx" : "rx"));
    if (length > 0)
        line += QLatin1Char(' ') + toHex(direction, protocol, bytes());
    if (length > MaxBytes)
        line += QStringLiteral(" ... (%1 bytes)").arg(length);
    if (direction == Direction::Received)
        line += QStringLiteral(" result 0x%1").arg(result, 2, 16, QLatin1Char('0'));
    return line;
}

QString FrameLog::toHex(Direction direction, PROTOCOL_TYPE protocol,
                        std::span<const std::uint8_t> bytes)
{
    const std::size_t secret =
        hasCalibrationKey(direction, protocol, bytes) ? keyOffset(protocol) : bytes.size();
    QStringList digits;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        digits.append(i < secret ? QStringLiteral("%1").arg(bytes[i], 2, 16, QLatin1Char('0'))
                                 : QStringLiteral("**"));
    return digits.join(QLatin1Char(' '));
}

FrameLog& FrameLog::instance()
{
    static FrameLog log;
    return log;
}

void FrameLog::noteSent(PROTOCOL_TYPE protocol, std::span<const std::uint8_t> bytes)
{
    next(protocol, bytes).direction = Direction::Sent;
}

void FrameLog::noteReceived(PROTOCOL_TYPE protocol, std::span<const std::uint8_t> bytes,
                            std::uint8_t result)
{
    Frame& frame = next(protocol, bytes);
    frame.direction = Direction::Received;
    frame.result = result;
}

std::vector<FrameLog::Frame> FrameLog::frames() const
{
    std::vector<Frame> ordered(m_ring.begin() + static_cast<std::ptrdiff_t>(m_next), m_ring.end());
    ordered.insert(ordered.end(), m_ring.begin(),
                   m_ring.begin() + static_cast<std::ptrdiff_t>(m_next));
    return ordered;
}

void FrameLog::clear()
{
    m_ring.clear();
    m_next = 0;
}

/// A new frame, in place of the oldest one once the ring is full.
FrameLog::Frame& FrameLog::next(PROTOCOL_TYPE protocol, std::span<const std::uint8_t> bytes)
{
    if (m_ring.empty())
        m_ring.reserve(Capacity); // pages are used as the ring fills
    const bool isFull = m_ring.size() == Capacity;
    Frame& frame = isFull ? m_ring[m_next] : m_ring.emplace_back();
    if (isFull)
        m_next = (m_next + 1) % Capacity;
    frame.time = std::chrono::system_clock::now();
    frame.protocol = protocol;
    frame.result = 0;
    frame.length = static_cast<std::uint16_t>(std::min<std::size_t>(bytes.size(), UINT16_MAX));
    std::ranges::copy(bytes.first(frame.bytes().size()), frame.data.begin());
    return frame;
}

} // namespace vanto
