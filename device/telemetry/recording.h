#pragma once

#include "samplebuffer.h"

#include <QDateTime>
#include <QFile>

namespace vanto
{

/// The content of a recording: all samples of a file of at most MaxExactSize bytes; of a larger one
/// the extents of groups of successive samples.
class Recording
{
public:
    static constexpr qint64 MaxExactSize = 64LL * 1024 * 1024; ///< bytes
    static constexpr std::size_t MaxGroups = std::size_t{1} << 18;

    ChannelSet channels() const { return m_channels; }
    std::size_t rowCount() const { return m_times.size(); }
    bool isEmpty() const { return m_times.empty(); }
    /// How many samples each row stands for; 1: the rows are the samples. The last row may stand
    /// for fewer.
    std::size_t samplesPerRow() const { return m_samplesPerRow; }
    std::uint64_t sampleCount() const { return m_samples; }
    std::int64_t timeAt(std::size_t row) const { return m_times[row]; }
    Extent at(std::size_t row, std::size_t channel) const;
    const QList<Marker>& markers() const { return m_markers; }
    /// As SampleBuffer::markers().
    QList<Marker> markers(std::int64_t fromUs, std::int64_t toUs) const;
    /// The file ends inside a line, which is left out.
    bool isCut() const { return m_cut; }
    /// The time of day of time 0; not valid if the file has none.
    QDateTime start() const { return m_start; }

    /// As SampleBuffer::reduce().
    std::vector<Extent> reduce(std::size_t channel, std::int64_t fromUs, std::int64_t toUs,
                               int columns) const;
    /// As SampleBuffer::valueAt(); of a group its extent.
    Extent valueAt(std::size_t channel, std::int64_t timeUs) const;
    /// Of groups, the minimum and the maximum of those that overlap the time.
    RangeStatistics statistics(std::size_t channel, std::int64_t fromUs, std::int64_t toUs) const;

private:
    friend class RecordingParser;

    std::size_t firstLaterThan(std::int64_t timeUs) const;

    ChannelSet m_channels;
    bool m_exact = true;
    std::size_t m_samplesPerRow = 1;
    std::uint64_t m_samples = 0;
    std::vector<std::int64_t> m_times; ///< of the first sample of each row, us
    std::vector<bool> m_gaps;
    std::array<std::vector<std::int32_t>, ChannelCount> m_min;
    std::array<std::vector<std::int32_t>, ChannelCount> m_max; ///< empty if m_exact
    QList<Marker> m_markers;
    bool m_cut = false;
    QDateTime m_start;
};

/// Parses a recording from its bytes, in pieces of any size. The first error ends it.
class RecordingParser
{
public:
    /// With `exact` every sample is kept, otherwise at most MaxGroups groups.
    explicit RecordingParser(bool exact);

    /// Returns false after an error.
    bool feed(QByteArrayView bytes);
    /// The end of the file. Returns false after an error.
    bool finish();
    /// For the user; names the line. Empty without an error.
    QString error() const { return m_error; }
    Recording take() { return std::move(m_recording); }

private:
    enum Column : int { Time = -1, WallTime = -2, MarkerText = -3, Other = -4 };

    bool parseLine(QByteArrayView line);
    bool splitFields(QByteArrayView line);
    bool parseHeader();
    bool parseSample();
    bool parseTime(QByteArrayView field, Sample& sample);
    void parseMarkers(QByteArrayView field, Sample& sample);
    void addRow(const Sample& sample);
    void mergeRows();
    bool fail(const QString& reason);

    Recording m_recording;
    std::vector<int> m_columns;           ///< channel or Column of each column
    ChannelSet m_inDegrees;               ///< otherwise in the units of Sample
    std::vector<QByteArrayView> m_fields; ///< of the current line
    QByteArray m_line;                    ///< incomplete
    std::int64_t m_lineNumber = 0;
    std::int64_t m_lastUs = 0;
    std::size_t m_inLastRow = 0; ///< samples of the last row
    QString m_error;
};

/// Reads a recording from disk, in steps, so that a window stays responsive meanwhile. Only regular
/// files are read.
class RecordingLoader
{
public:
    explicit RecordingLoader(const QString& path);

    /// Reads some more, which takes two milliseconds. Returns false at the end and after a
    /// failure.
    bool step();
    /// What has been read, 0 to 1.
    double share() const;
    /// For the user; empty if the file could be read.
    QString failure() const { return m_failure; }
    /// After the last step.
    Recording take() { return m_parser.take(); }

private:
    bool readPart();
    bool fail(const QString& reason);

    QFile m_file;
    RecordingParser m_parser;
    qint64 m_done = 0; ///< bytes
    QString m_failure;
};

struct RecordingFile {
    Recording recording;
    QString failure; ///< empty if the file could be read
};

/// Reads a whole recording at once.
RecordingFile loadRecording(const QString& path);

} // namespace vanto
