#include "recording.h"

#include "recordingformat.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

namespace vanto
{

namespace
{
constexpr qsizetype MaxLineLength = qsizetype{64} * 1024; ///< bytes
constexpr qint64 ReadSize = qint64{16} * 1024;            ///< bytes
constexpr qint64 StepMs = 2;
constexpr double MaxSeconds = 1e9;
constexpr QByteArrayView ByteOrderMark("\xEF\xBB\xBF");

QString translated(const char* text)
{
    return QCoreApplication::translate("vanto::Recording", text);
}
} // namespace

Extent Recording::at(std::size_t row, std::size_t channel) const
{
    Extent extent;
    extent.afterGap = m_gaps[row];
    if (!m_channels[channel])
        return extent;
    extent.add(m_min[channel][row]);
    if (!m_exact)
        extent.add(m_max[channel][row]);
    return extent;
}

std::vector<Extent> Recording::reduce(std::size_t channel, std::int64_t fromUs, std::int64_t toUs,
                                      int columns) const
{
    const auto first = std::lower_bound(m_times.begin(), m_times.end(), fromUs);
    return reduceToColumns(
        static_cast<std::size_t>(std::distance(m_times.begin(), first)), m_times.size(), fromUs,
        toUs, columns,
        [&](std::size_t row, Extent& column) {
            const Extent extent = at(row, channel);
            column.add(extent.min);
            column.add(extent.max);
            column.afterGap = column.afterGap || extent.afterGap;
        },
        [this](std::size_t row) { return m_times[row]; });
}

QList<Marker> Recording::markers(std::int64_t fromUs, std::int64_t toUs) const
{
    QList<Marker> found;
    std::ranges::copy_if(m_markers, std::back_inserter(found), [=](const Marker& marker) {
        return marker.timeUs >= fromUs && marker.timeUs < toUs;
    });
    return found;
}

std::size_t Recording::firstLaterThan(std::int64_t timeUs) const
{
    const auto later = std::upper_bound(m_times.begin(), m_times.end(), timeUs);
    return static_cast<std::size_t>(std::distance(m_times.begin(), later));
}

Extent Recording::valueAt(std::size_t channel, std::int64_t timeUs) const
{
    const auto row = rowValidAt(
        timeUs, firstLaterThan(timeUs), m_times.size(),
        [this](std::size_t index) { return m_times[index]; },
        [this](std::size_t index) { return m_gaps[index]; });
    return row ? at(*row, channel) : Extent();
}

RangeStatistics Recording::statistics(std::size_t channel, std::int64_t fromUs,
                                      std::int64_t toUs) const
{
    std::size_t row = firstLaterThan(fromUs - 1);
    if (m_samplesPerRow > 1 && row > 0)
        --row; // the group that contains the start
    const std::size_t end = firstLaterThan(toUs);
    RangeSum sum;
    for (; row < end; ++row) {
        const Extent extent = at(row, channel);
        sum.add(extent.min);
        sum.add(extent.max);
    }
    return sum.result(m_samplesPerRow == 1);
}

RecordingParser::RecordingParser(bool exact)
{
    m_recording.m_exact = exact;
}

bool RecordingParser::fail(const QString& reason)
{
    m_error = translated("Line %1: %2").arg(m_lineNumber).arg(reason);
    m_recording = {};
    return false;
}

bool RecordingParser::feed(QByteArrayView bytes)
{
    if (!m_error.isEmpty())
        return false;
    qsizetype begin = 0;
    for (qsizetype end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n', begin)) {
        const QByteArrayView line = bytes.sliced(begin, end - begin);
        begin = end + 1;
        ++m_lineNumber;
        if (m_line.size() + line.size() > MaxLineLength)
            return fail(translated("The line is too long."));
        if (m_line.isEmpty()) {
            if (!parseLine(line))
                return false;
            continue;
        }
        m_line.append(line);
        if (!parseLine(m_line))
            return false;
        m_line.clear();
    }
    m_line.append(bytes.sliced(begin));
    if (m_line.size() <= MaxLineLength)
        return true;
    ++m_lineNumber;
    return fail(translated("The line is too long."));
}

bool RecordingParser::finish()
{
    if (!m_error.isEmpty())
        return false;
    if (m_columns.empty()) {
        ++m_lineNumber;
        return fail(translated("This is not a recording."));
    }
    m_recording.m_cut = !m_line.isEmpty();
    return true;
}

bool RecordingParser::parseLine(QByteArrayView line)
{
    if (line.endsWith('\r'))
        line.chop(1);
    if (m_lineNumber == 1 && line.startsWith(ByteOrderMark))
        line = line.sliced(ByteOrderMark.size());
    if (line.isEmpty() && !m_columns.empty())
        return true;
    if (!splitFields(line))
        return fail(translated("A quotation mark is missing."));
    return m_columns.empty() ? parseHeader() : parseSample();
}

/// Outer quotation marks are left out, inner ones stay doubled. False if one is missing.
bool RecordingParser::splitFields(QByteArrayView line)
{
    m_fields.clear();
    for (;;) {
        if (!line.startsWith('"')) {
            const qsizetype comma = line.indexOf(',');
            m_fields.push_back(comma < 0 ? line : line.first(comma));
            if (comma < 0)
                return true;
            line = line.sliced(comma + 1);
            continue;
        }
        qsizetype end = line.indexOf('"', 1);
        while (end >= 0 && end + 1 < line.size() && line[end + 1] == '"')
            end = line.indexOf('"', end + 2);
        if (end < 0 || (end + 1 < line.size() && line[end + 1] != ','))
            return false;
        m_fields.push_back(line.sliced(1, end - 1));
        if (end + 1 == line.size())
            return true;
        line = line.sliced(end + 2);
    }
}

bool RecordingParser::parseHeader()
{
    const std::map<QString, Column> columns{{RecordingFormat::TimeColumn, Time},
                                            {RecordingFormat::WallTimeColumn, WallTime},
                                            {RecordingFormat::MarkerColumn, MarkerText}};
    for (const QByteArrayView field : m_fields) {
        const QString name = QString::fromUtf8(field);
        const auto known = columns.find(name);
        if (m_columns.empty() && name != RecordingFormat::TimeColumn)
            return fail(translated("This is not a recording."));
        const auto column = RecordingFormat::columnOf(name);
        if (!column) {
            m_columns.push_back(known == columns.end() ? Other : known->second);
            continue;
        }
        if (m_recording.m_channels[column->channel])
            return fail(translated("The column '%1' occurs twice.").arg(name));
        m_recording.m_channels.set(column->channel);
        m_inDegrees[column->channel] = column->inDegrees;
        m_columns.push_back(static_cast<int>(column->channel));
    }
    return true;
}

bool RecordingParser::parseSample()
{
    if (m_fields.size() != m_columns.size())
        return fail(translated("%1 columns are expected, but there are %2.")
                        .arg(m_columns.size())
                        .arg(m_fields.size()));
    Sample sample;
    bool isSample = true; // one whose values could not be read has no marker
    bool hasValues = false;
    if (!parseTime(m_fields.front(), sample))
        return false;
    for (std::size_t i = 1; i < m_fields.size(); ++i) {
        const QByteArrayView field = m_fields[i];
        if (m_columns[i] == MarkerText) {
            parseMarkers(field, sample);
            isSample = field.isEmpty();
        }
        if (m_columns[i] == WallTime && !m_recording.m_start.isValid())
            m_recording.m_start =
                QDateTime::fromString(QString::fromLatin1(field), Qt::ISODateWithMs)
                    .addMSecs(-sample.timeUs / 1000);
        if (m_columns[i] < 0 || field.isEmpty())
            continue;
        const auto channel = static_cast<std::size_t>(m_columns[i]);
        const auto value = RecordingFormat::parseField(field, m_inDegrees[channel]);
        if (!value)
            return fail(translated("'%1' is not a number.").arg(QString::fromUtf8(field)));
        sample.values[channel] = *value;
        hasValues = true;
    }
    if (hasValues || sample.afterGap || isSample)
        addRow(sample);
    return true;
}

bool RecordingParser::parseTime(QByteArrayView field, Sample& sample)
{
    bool isNumber = false;
    const double seconds = field.toDouble(&isNumber);
    if (!isNumber || !(seconds >= 0 && seconds <= MaxSeconds))
        return fail(translated("'%1' is not a time.").arg(QString::fromUtf8(field)));
    sample.timeUs = std::llround(seconds * double{UsPerSecond});
    if (sample.timeUs < m_lastUs)
        return fail(translated("The time is before that of the line above."));
    m_lastUs = sample.timeUs;
    return true;
}

void RecordingParser::parseMarkers(QByteArrayView field, Sample& sample)
{
    if (field.isEmpty())
        return;
    const auto [text, afterGap] = RecordingFormat::parseMarkerField(
        QString::fromUtf8(field).replace(QLatin1String("\"\""), QLatin1String("\"")));
    sample.afterGap = afterGap;
    if (!text.isEmpty() && m_recording.m_markers.size() < qsizetype{SampleBuffer::MaxMarkers})
        m_recording.m_markers.append({sample.timeUs, text});
}

void RecordingParser::addRow(const Sample& sample)
{
    Recording& to = m_recording;
    ++to.m_samples;
    if (!to.m_exact && to.m_times.size() == Recording::MaxGroups &&
        m_inLastRow == to.m_samplesPerRow)
        mergeRows();
    const bool begins = to.m_exact || m_inLastRow == 0 || m_inLastRow == to.m_samplesPerRow;
    if (begins) {
        m_inLastRow = 0;
        to.m_times.push_back(sample.timeUs);
        to.m_gaps.push_back(sample.afterGap);
    } else if (sample.afterGap) {
        to.m_gaps.back() = true;
    }
    ++m_inLastRow;
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        if (!to.m_channels[channel])
            continue;
        const std::int32_t value = sample.values[channel];
        if (begins) {
            to.m_min[channel].push_back(value);
            if (!to.m_exact)
                to.m_max[channel].push_back(value);
            continue;
        }
        Extent extent{to.m_min[channel].back(), to.m_max[channel].back()};
        extent.add(value);
        to.m_min[channel].back() = extent.min;
        to.m_max[channel].back() = extent.max;
    }
}

/// Joins two rows each into one.
void RecordingParser::mergeRows()
{
    Recording& all = m_recording;
    const std::size_t rows = all.m_times.size() / 2;
    for (std::size_t row = 0; row < rows; ++row) {
        all.m_times[row] = all.m_times[2 * row];
        all.m_gaps[row] = all.m_gaps[2 * row] || all.m_gaps[2 * row + 1];
        for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
            if (!all.m_channels[channel])
                continue;
            Extent extent{all.m_min[channel][2 * row], all.m_max[channel][2 * row]};
            extent.add(all.m_min[channel][2 * row + 1]);
            extent.add(all.m_max[channel][2 * row + 1]);
            all.m_min[channel][row] = extent.min;
            all.m_max[channel][row] = extent.max;
        }
    }
    all.m_times.resize(rows);
    all.m_gaps.resize(rows);
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        if (!all.m_channels[channel])
            continue;
        all.m_min[channel].resize(rows);
        all.m_max[channel].resize(rows);
    }
    all.m_samplesPerRow *= 2;
    m_inLastRow = all.m_samplesPerRow;
}

RecordingLoader::RecordingLoader(const QString& path)
    : m_file(path), m_parser(QFileInfo(path).size() <= Recording::MaxExactSize)
{
    if (!QFileInfo(path).isFile())
        fail(translated("'%1' is not a regular file.").arg(path));
    else if (!m_file.open(QIODevice::ReadOnly))
        fail(translated("Cannot read '%1': %2").arg(path, m_file.errorString()));
}

bool RecordingLoader::fail(const QString& reason)
{
    m_failure = reason;
    return false;
}

bool RecordingLoader::step()
{
    QElapsedTimer timer;
    timer.start();
    while (readPart()) {
        if (timer.hasExpired(StepMs))
            return true;
    }
    return false;
}

bool RecordingLoader::readPart()
{
    if (!m_failure.isEmpty())
        return false;
    const QByteArray part = m_file.read(ReadSize);
    if (m_file.error() != QFileDevice::NoError)
        return fail(
            translated("Cannot read '%1': %2").arg(m_file.fileName(), m_file.errorString()));
    m_done += part.size();
    const bool goodSoFar = part.isEmpty() ? m_parser.finish() : m_parser.feed(part);
    return goodSoFar ? !part.isEmpty() : fail(m_parser.error());
}

double RecordingLoader::share() const
{
    const qint64 size = std::max({m_file.size(), m_done, qint64{1}});
    return static_cast<double>(m_done) / static_cast<double>(size);
}

RecordingFile loadRecording(const QString& path)
{
    RecordingLoader loader(path);
    while (loader.step()) {
    }
    return {loader.failure().isEmpty() ? loader.take() : Recording(), loader.failure()};
}

} // namespace vanto
