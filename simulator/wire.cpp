#include "wire.h"

#include <algorithm>
#include <array>
#include <utility>

#include <sys/timerfd.h>
#include <unistd.h>

namespace vanto::simulator
{
namespace
{
using namespace std::chrono_literals;

constexpr auto BitsPerByte = 10; ///< start bit, eight data bits, stop bit
constexpr std::size_t ReadChunkSize = 512;
constexpr std::size_t MaxQueuedReplies = 256;
/// Limits the wake-ups for single bytes; the time of the last queued byte is always exact.
constexpr Clock::duration WakeInterval = 500us;

timespec toTimespec(Clock::duration duration)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(duration);
    const std::chrono::nanoseconds rest = duration - seconds;
    return {seconds.count(), rest.count()};
}
} // namespace

Wire::Wire(std::uint32_t baud, QObject* parent) : QObject(parent)
{
    if (baud == 0)
        return;
    m_byteTime = std::chrono::duration_cast<Clock::duration>(BitsPerByte * 1s) / baud;
    m_timer = ::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    m_timerFired = std::make_unique<QSocketNotifier>(m_timer, QSocketNotifier::Read);
    connect(m_timerFired.get(), &QSocketNotifier::activated, this, &Wire::serviceDeadlines);
}

Wire::~Wire()
{
    detach();
    m_timerFired.reset();
    if (m_timer >= 0)
        ::close(m_timer);
}

void Wire::attach(int descriptor)
{
    m_descriptor = descriptor;
    m_readable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    m_writable = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
    m_writable->setEnabled(false);
    connect(m_readable.get(), &QSocketNotifier::activated, this, &Wire::readAvailable);
    connect(m_writable.get(), &QSocketNotifier::activated, this, &Wire::serviceDeadlines);
}

void Wire::detach()
{
    m_readable.reset();
    m_writable.reset();
    m_incoming.clear();
    m_outgoing.clear();
    m_incomingFree = {};
    m_outgoingFree = {};
    m_descriptor = -1;
}

bool Wire::send(const QByteArray& bytes, std::function<void()> beforeLastByte)
{
    const bool queueFull = m_outgoing.size() >= MaxQueuedReplies;
    if (m_descriptor < 0 || queueFull)
        return false;
    const TimePoint now = Clock::now();
    const TimePoint start = std::max(now, m_outgoingFree);
    m_outgoingFree = start + bytes.size() * m_byteTime;
    m_outgoing.push_back({bytes, std::move(beforeLastByte), start});
    writeDue(now);
    armTimer(now);
    return true;
}

void Wire::readAvailable()
{
    emit aboutToRead();
    std::array<char, ReadChunkSize> buffer{};
    const ssize_t count = ::read(m_descriptor, buffer.data(), buffer.size());
    if (count <= 0)
        return;
    const QByteArray bytes(buffer.data(), count);
    const TimePoint now = Clock::now();
    if (m_byteTime == Clock::duration::zero()) {
        emit received(bytes, now);
        return;
    }
    queueIncoming(bytes, now);
    armTimer(now);
}

void Wire::queueIncoming(const QByteArray& bytes, TimePoint now)
{
    m_incomingFree = std::max(now, m_incomingFree);
    for (const char byte : bytes) {
        m_incomingFree += m_byteTime;
        m_incoming.push_back({byte, m_incomingFree});
    }
}

void Wire::releaseIncoming(TimePoint now)
{
    while (!m_incoming.empty() && m_incoming.front().due <= now) {
        const Incoming next = m_incoming.front();
        m_incoming.pop_front();
        emit received(QByteArray(1, next.byte), next.due - m_byteTime);
    }
}

void Wire::writeDue(TimePoint now)
{
    while (!m_outgoing.empty()) {
        Outgoing& front = m_outgoing.front();
        qsizetype due = front.bytes.size();
        if (m_byteTime > Clock::duration::zero())
            due = std::clamp<qsizetype>((now - front.start) / m_byteTime, 0, due);
        if (due == front.bytes.size() && front.beforeLastByte)
            std::exchange(front.beforeLastByte, nullptr)();
        if (!writeSome(front, due) || front.written < front.bytes.size())
            return;
        m_outgoing.pop_front();
    }
}

bool Wire::writeSome(Outgoing& front, qsizetype upTo)
{
    const qsizetype wanted = upTo - front.written;
    if (wanted <= 0)
        return true;
    const char* const from = front.bytes.constData() + front.written;
    const ssize_t count = ::write(m_descriptor, from, static_cast<std::size_t>(wanted));
    front.written += std::max<ssize_t>(count, 0);
    m_writable->setEnabled(count < wanted);
    emit written();
    return count == wanted;
}

void Wire::serviceDeadlines()
{
    std::uint64_t expirations = 0;
    if (m_timer >= 0) [[maybe_unused]]
        const ssize_t drained = ::read(m_timer, &expirations, sizeof expirations);
    if (m_descriptor < 0)
        return;
    const TimePoint now = Clock::now();
    writeDue(now);
    releaseIncoming(now);
    armTimer(Clock::now());
}

void Wire::armTimer(TimePoint now)
{
    if (m_timer < 0)
        return;
    std::array<TimePoint, 2> ends{TimePoint::max(), TimePoint::max()};
    if (!m_incoming.empty())
        ends[0] = m_incoming.back().due;
    if (!m_outgoing.empty() && !m_writable->isEnabled()) {
        const Outgoing& front = m_outgoing.front();
        ends[1] = front.start + front.bytes.size() * m_byteTime;
    }
    const TimePoint end = std::min(ends[0], ends[1]);
    itimerspec setting{};
    if (end != TimePoint::max()) {
        const Clock::duration wait = std::min(end - now, std::max(WakeInterval, m_byteTime));
        setting.it_value = toTimespec(std::max<Clock::duration>(wait, 1ns));
    }
    ::timerfd_settime(m_timer, 0, &setting, nullptr);
}

} // namespace vanto::simulator
