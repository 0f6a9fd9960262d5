#pragma once

#include "handcall.h"
#include "sample.h"
#include "telemetryclock.h"

#include <QElapsedTimer>
#include <QTimer>

#include <deque>
#include <functional>
#include <optional>

namespace vanto
{

/// Samples an open hand periodically, in the background.
///
/// Each conversation contains one exchange, and between two of them the event loop runs, so that
/// halts, requests, the player and the Run page never wait for more than one exchange. Values that
/// others read meanwhile (see ReadingMonitor) are used and not read again. Only reads are sent.
class TelemetryReader : public QObject
{
    Q_OBJECT
public:
    /// What the reader needs to know of the connection.
    struct Line {
        /// The hand to read, if one is open.
        std::function<std::optional<HandTarget>()> target;
        /// Whether the reader may read this quantity now; if not, it tries again a few milliseconds
        /// later. Empty: whenever no conversation is in progress, which is always required.
        std::function<bool(Quantity)> canRead{};
        /// Whether the line is reserved for others, for longer than one conversation. Nothing is
        /// sent then; each round of what they read becomes a sample. Empty: never.
        std::function<bool()> isReserved{};
        /// Receives the first failure of a read, which then stops the reader. Null: a value that
        /// could not be read is missing in its sample.
        CallReport* report = nullptr;
    };

    static constexpr double AsFastAsPossible = 0;
    /// A sample is after a gap if the one before it is older than this many periods. The period is
    /// that of the rate, or the average interval of recent samples if that is longer.
    static constexpr int PeriodsOfGap = 3;

    /// `clock` must outlive the reader.
    TelemetryReader(Line line, const TelemetryClock& clock, QObject* parent = nullptr);

    /// The channels to sample. Positions, like angles, are read of all fingers in one exchange.
    void setChannels(ChannelSet channels);
    ChannelSet channels() const { return m_channels; }
    /// Samples a second.
    void setRate(double hertz);
    double rate() const { return m_rate; }

    void start();
    void stop();
    bool isRunning() const { return m_running; }

    /// Samples a second, over the last second.
    double achievedRate() const;
    /// Samples that have been missed, because an earlier one took longer than two periods. stop()
    /// adds those since the last sample.
    std::uint64_t lateSamples() const { return m_late; }

signals:
    void sig_sample(const vanto::Sample& sample);
    /// The hand refuses a read; until the next start() it is not sent any more, and the channels
    /// stay without values. `result` is a result code.
    void sig_refused(std::string_view operation, std::uint8_t finger, std::uint8_t result);
    /// The hand has not answered several reads in a row. One read a second is sent until it does.
    void sig_noAnswer();

private:
    /// One exchange: all fingers of a pose, or one finger.
    struct Read {
        Quantity quantity;
        std::uint8_t finger;
        ChannelSet channels;
        int failures = 0; ///< in a row
        bool refused = false;
    };

    void planReads();
    void step();
    void schedule(std::int64_t delayUs);
    bool isReserved() const { return m_line.isReserved && m_line.isReserved(); }
    bool canRead(Quantity quantity) const;
    bool isRefused() const;
    Read* nextRead();
    void exchange(Read& read);
    void noteResult(Read& read, std::uint8_t result);
    void feed(const Reading& reading);
    bool isComplete() const;
    bool noteInterval(std::int64_t now);
    void emitSample(std::int64_t now);
    std::int64_t periodUs() const;

    Line m_line;
    const TelemetryClock& m_clock;
    ChannelSet m_channels;
    double m_rate = 10;
    bool m_running = false;
    std::vector<Read> m_reads;
    Sample m_sample;     ///< the one that is being completed
    ChannelSet m_filled; ///< channels of m_sample that have been read or tried
    std::int64_t m_dueUs = 0;
    std::optional<std::int64_t> m_lastUs; ///< time of the last sample
    std::int64_t m_averageUs = 0;         ///< of recent intervals
    std::deque<std::int64_t> m_recent;    ///< times of the samples of the last second
    std::uint64_t m_late = 0;
    int m_timeouts = 0; ///< in a row
    bool m_reading = false;
    QTimer m_timer;
};

} // namespace vanto
