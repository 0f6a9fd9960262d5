#include "overlapcheck.h"

#include "handclock.h"
#include "replylimits.h"

#include <algorithm>

namespace vanto
{

namespace
{
constexpr double ClockErrorMs = 1;
constexpr int StoreGains = 0x45; ///< command of SerialCtrl
constexpr int ReadRegisters = 3; ///< function of Modbus

bool isModbus(const TracedFrame& frame)
{
    return frame.protocol == QLatin1String("modbus");
}

bool isModbusRead(const TracedFrame& request)
{
    return isModbus(request) && request.bytes.size() > 1 && request.bytes[1] == ReadRegisters;
}

/// How long the host waits for the reply to the request, in ms.
int replyLimit(const TracedFrame& request)
{
    constexpr int commandAt = 4;
    const ReplyLimits& limits = ReplyLimits::current();
    if (isModbus(request))
        return isModbusRead(request) ? limits.modbusRead : limits.modbusWrite;
    const bool storesGains =
        request.bytes.size() > commandAt && request.bytes[commandAt] == StoreGains;
    return storesGains ? limits.serialCtrlGains : limits.serialCtrl;
}
} // namespace

QStringList OverlapCheck::check(const QList<TracedFrame>& frames)
{
    QStringList findings;
    std::vector<Sent> sent; // only read if there is an overlap
    for (const TracedFrame& frame : frames) {
        if (frame.marks.contains(QLatin1String("overlap"))) {
            if (sent.empty())
                sent = sentRequests();
            ++m_overlaps;
            const QString reason = unexplained(frame, sent);
            if (reason.isEmpty())
                ++m_explained;
            else
                findings.append(
                    QStringLiteral("two exchanges at the same time: %1 before the reply to %2: %3")
                        .arg(QString::fromLatin1(frame.bytes.toHex(' ')),
                             QString::fromLatin1(m_request.bytes.toHex(' ')), reason));
        }
        note(frame);
    }
    return findings;
}

void OverlapCheck::note(const TracedFrame& frame)
{
    if (frame.direction == QLatin1String("rx")) {
        m_request = frame;
        m_replyMs = 0;
    } else if (m_replyMs == 0) {
        m_replyMs = frame.ms;
    }
}

std::vector<OverlapCheck::Sent> OverlapCheck::sentRequests() const
{
    std::vector<Sent> sent;
    if (!m_clock)
        return sent;
    using Ms = std::chrono::duration<double, std::milli>;
    const double nowMs = m_clock->now();
    const auto now = std::chrono::system_clock::now();
    for (const FrameLog::Frame& frame : FrameLog::instance().frames()) {
        if (frame.direction != FrameLog::Direction::Sent)
            continue;
        const auto bytes = frame.bytes();
        sent.push_back({nowMs - Ms(now - frame.time).count(),
                        QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                   static_cast<qsizetype>(bytes.size()))});
    }
    return sent;
}

QString OverlapCheck::unexplained(const TracedFrame& next, const std::vector<Sent>& sent) const
{
    const auto isNext = [&next](const Sent& request) {
        return request.bytes == next.bytes && request.ms <= next.ms + ClockErrorMs;
    };
    const auto nextSent = std::find_if(sent.rbegin(), sent.rend(), isNext);
    if (nextSent == sent.rend())
        return QStringLiteral("this program has not sent it");
    auto previous = std::next(nextSent);
    const double limit = replyLimit(m_request);
    // Qt repeats a read by itself, which is not logged.
    const bool isRepetition = isModbusRead(m_request) && m_request.bytes == next.bytes;
    if (previous == sent.rend() || previous->bytes != m_request.bytes) {
        if (!isRepetition)
            return QStringLiteral("the previous request of this program is another one");
        previous = nextSent;
    }
    const double replyMs = m_replyMs > 0 ? m_replyMs : next.ms;
    if (replyMs + ClockErrorMs < previous->ms + limit)
        return QStringLiteral("the reply was written %1 ms after the request, within %2 ms")
            .arg(replyMs - previous->ms)
            .arg(limit);
    if (previous != nextSent && nextSent->ms + ClockErrorMs < previous->ms + limit)
        return QStringLiteral("the request was sent %1 ms after the previous one, within %2 ms")
            .arg(nextSent->ms - previous->ms)
            .arg(limit);
    return {};
}

} // namespace vanto
