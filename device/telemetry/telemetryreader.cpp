#include "telemetryreader.h"

#include "resultcode.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vanto
{

namespace
{
constexpr std::int64_t UsPerMs = 1000;
constexpr std::int64_t RetryUs = 5 * UsPerMs;             ///< while the line is in use
constexpr std::int64_t MaxWaitUs = 200 * UsPerMs;         ///< for a line in use
constexpr std::int64_t IdleUs = 100 * UsPerMs;            ///< while there is nothing to read
constexpr std::int64_t SilentIntervalUs = UsPerSecond;    ///< between two reads of a silent hand
constexpr std::int64_t UnknownIntervalUs = 100 * UsPerMs; ///< as the average at first
constexpr int AveragedIntervals = 8; ///< of samples; a new rate is adopted after about as many
constexpr int TimeoutsOfSilence = 3; ///< in a row
constexpr int FailuresOfRefusal = 3; ///< in a row; a single one may be a damaged reply

/// Reads all fingers with one operation; only its second output is used.
template<auto Operation, class Value>
std::uint8_t readPose(HandCall& call)
{
    PerFinger<Value> targets{};
    PerFinger<Value> currents{};
    return call.attempt<Operation>(targets.data(), currents.data(),
                                   static_cast<std::uint8_t>(FingerCount));
}

std::uint8_t readForce(HandCall& call, std::uint8_t finger)
{
    std::uint16_t force = 0;
    return call.attempt<&VantoProtocol::getFingerForce>(finger, &force, std::uint8_t{1});
}

std::uint8_t readCurrent(HandCall& call, std::uint8_t finger)
{
    std::uint16_t current = 0;
    return call.attempt<&VantoProtocol::getFingerCurrent>(finger, &current);
}

bool readsAllFingers(Quantity quantity)
{
    return quantity == Quantity::Position || quantity == Quantity::Angle;
}

std::string_view operationOf(Quantity quantity)
{
    constexpr std::array<std::string_view, 4> names{"getFingerCurrent", "getFingerPosAll",
                                                    "getFingerAngleAll", "getFingerForce"};
    return names.at(static_cast<std::size_t>(quantity));
}
} // namespace

TelemetryReader::TelemetryReader(Line line, const TelemetryClock& clock, QObject* parent)
    : QObject(parent), m_line(std::move(line)), m_clock(clock), m_averageUs(UnknownIntervalUs)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &TelemetryReader::step);
    connect(&ReadingMonitor::instance(), &ReadingMonitor::sig_read, this, &TelemetryReader::feed);
}

void TelemetryReader::setChannels(ChannelSet channels)
{
    m_channels = channels;
    planReads();
}

void TelemetryReader::setRate(double hertz)
{
    m_rate = std::max(hertz, AsFastAsPossible);
    m_averageUs = m_rate > 0 ? periodUs() : UnknownIntervalUs;
    m_dueUs = m_clock.nowUs();
    if (m_running)
        schedule(0);
}

void TelemetryReader::start()
{
    m_running = true;
    m_late = 0;
    m_timeouts = 0;
    m_recent.clear();
    m_dueUs = m_clock.nowUs();
    planReads();
    schedule(0);
}

void TelemetryReader::stop()
{
    if (m_running && m_rate > 0)
        m_late += static_cast<std::uint64_t>(
            std::max<std::int64_t>((m_clock.nowUs() - m_dueUs) / periodUs(), 0));
    m_running = false;
    m_timer.stop();
}

double TelemetryReader::achievedRate() const
{
    const std::int64_t since = m_clock.nowUs() - UsPerSecond;
    const auto first = std::lower_bound(m_recent.begin(), m_recent.end(), since);
    return static_cast<double>(std::distance(first, m_recent.end()));
}

void TelemetryReader::planReads()
{
    m_reads.clear();
    m_filled.reset();
    m_sample = {};
    for (std::size_t index = 0; index < ChannelCount; ++index) {
        if (!m_channels[index])
            continue;
        const auto [quantity, finger] = Channel::at(index);
        const bool continues =
            readsAllFingers(quantity) && !m_reads.empty() && m_reads.back().quantity == quantity;
        if (!continues)
            m_reads.push_back({quantity, finger, {}});
        m_reads.back().channels.set(index);
    }
}

void TelemetryReader::schedule(std::int64_t delayUs)
{
    if (m_running)
        m_timer.start(
            static_cast<int>((std::max<std::int64_t>(delayUs, 0) + UsPerMs - 1) / UsPerMs));
}

std::int64_t TelemetryReader::periodUs() const
{
    return m_rate > 0 ? std::llround(static_cast<double>(UsPerSecond) / m_rate) : 0;
}

bool TelemetryReader::canRead(Quantity quantity) const
{
    if (Conversation::isActive() || MotionGate::state() == MotionGate::State::Closed ||
        isReserved())
        return false;
    return !m_line.canRead || m_line.canRead(quantity);
}

/// One exchange at most. The next step follows from the event loop, after everything that has
/// waited for the line.
void TelemetryReader::step()
{
    if (!m_running || m_reading || m_channels.none())
        return;
    const std::int64_t now = m_clock.nowUs();
    if (now < m_dueUs) {
        schedule(m_dueUs - now);
        return;
    }
    if (!m_line.target() || isRefused()) {
        m_sample = {}; // of another time
        m_filled.reset();
        schedule(IdleUs);
        return;
    }
    if (Read* const read = nextRead()) {
        if (!canRead(read->quantity)) {
            // The player can use the whole line; what it reads makes samples.
            if (m_filled.any() && now - m_dueUs > MaxWaitUs)
                emitSample(now);
            schedule(RetryUs);
            return;
        }
        exchange(*read);
    }
    if (isComplete())
        emitSample(m_clock.nowUs());
    schedule(m_timeouts >= TimeoutsOfSilence ? SilentIntervalUs : m_dueUs - m_clock.nowUs());
}

bool TelemetryReader::isRefused() const
{
    return std::ranges::all_of(m_reads, &Read::refused);
}

TelemetryReader::Read* TelemetryReader::nextRead()
{
    const auto next = std::ranges::find_if(m_reads, [this](const Read& read) {
        return !read.refused && (read.channels & ~m_filled).any();
    });
    return next == m_reads.end() ? nullptr : &*next;
}

void TelemetryReader::exchange(Read& read)
{
    const auto target = m_line.target();
    if (!target)
        return;
    const QScopedValueRollback reading(m_reading, true);
    const Quantity quantity = read.quantity;
    const ChannelSet channels = read.channels;
    std::uint8_t result = 0;
    bool wasCurrent = false;
    {
        std::optional<HandCall> conversation;
        HandCall& call = m_line.report ? conversation.emplace(*target, *m_line.report)
                                       : conversation.emplace(*target);
        call.setBackground();
        result = quantity == Quantity::Current ? readCurrent(call, read.finger)
                 : quantity == Quantity::Force ? readForce(call, read.finger)
                 : quantity == Quantity::Position
                     ? readPose<&VantoProtocol::getFingerPosAll, std::uint16_t>(call)
                     : readPose<&VantoProtocol::getFingerAngleAll, std::int16_t>(call);
        if (m_line.report && !call.accept(operationOf(quantity), result))
            stop();
        wasCurrent = call.isCurrent();
    }
    // During the exchange the channels may have been changed, or the reader stopped.
    const auto same = std::ranges::find(m_reads, channels, &Read::channels);
    if (!wasCurrent || !m_running || same == m_reads.end())
        return;
    m_filled |= channels; // its values have come through feed()
    noteResult(*same, result);
}

void TelemetryReader::noteResult(Read& read, std::uint8_t result)
{
    if (result == ResultCode::Timeout) {
        if (++m_timeouts == TimeoutsOfSilence)
            emit sig_noAnswer();
        return;
    }
    m_timeouts = 0;
    read.failures = result == ResultCode::Success ? 0 : read.failures + 1;
    if (read.failures < FailuresOfRefusal)
        return;
    read.refused = true;
    emit sig_refused(operationOf(read.quantity), read.finger, result);
}

void TelemetryReader::feed(const Reading& reading)
{
    const auto target = m_running ? m_line.target() : std::nullopt;
    if (!target || reading.node != target->node || !reading.token.isCurrent())
        return;
    for (std::size_t i = 0; i < reading.values.size(); ++i) {
        const Channel channel{reading.quantity, static_cast<std::uint8_t>(reading.firstFinger + i)};
        if (channel.finger >= FingerCount || channel.index() >= ChannelCount ||
            !m_channels[channel.index()])
            continue;
        // A value that is read again begins the next round, even if this one is not complete.
        if (const std::int64_t now = m_clock.nowUs();
            m_filled[channel.index()] && now >= m_dueUs && isReserved())
            emitSample(now);
        m_sample.values[channel.index()] = reading.values[i];
        m_filled.set(channel.index());
    }
}

bool TelemetryReader::isComplete() const
{
    return std::ranges::all_of(m_reads, [this](const Read& read) {
        return read.refused || (read.channels & ~m_filled).none();
    });
}

/// Returns true if a gap ends now.
///
/// The hand, or others that use the line, can make samples slower than asked for. These samples
/// belong together, so a gap is measured by their average interval, too. In this average a gap
/// counts only as the shortest gap.
bool TelemetryReader::noteInterval(std::int64_t now)
{
    const auto last = std::exchange(m_lastUs, now);
    if (!last)
        return false;
    const std::int64_t interval = now - *last;
    const std::int64_t gap = PeriodsOfGap * std::max(periodUs(), m_averageUs);
    m_averageUs += (std::min(interval, gap) - m_averageUs) / AveragedIntervals;
    return interval > gap;
}

void TelemetryReader::emitSample(std::int64_t now)
{
    const std::int64_t period = periodUs();
    m_sample.timeUs = now;
    m_sample.afterGap = noteInterval(now);
    m_recent.push_back(now);
    while (m_recent.front() < now - UsPerSecond)
        m_recent.pop_front();
    // Samples keep to the grid of their period; those for which there was no time are left out.
    if (period > 0) {
        const std::int64_t periods = std::max<std::int64_t>((now - m_dueUs) / period, 1);
        m_late += static_cast<std::uint64_t>(periods - 1);
        m_dueUs += periods * period;
    } else {
        m_dueUs = now;
    }
    const Sample sample = m_sample;
    m_sample = {};
    m_filled.reset();
    emit sig_sample(sample);
}

} // namespace vanto
