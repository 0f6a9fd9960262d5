#include "telemetryrecorder.h"

#include "recordingformat.h"

#include <QFileInfo>
#include <QSignalBlocker>

#include <algorithm>
#include <limits>
#include <utility>

namespace vanto
{

namespace
{
constexpr int FlushIntervalMs = 1000;
constexpr int TimeDecimals = 6;                       ///< microseconds
constexpr qsizetype FlushSize = qsizetype{64} * 1024; ///< bytes

QByteArray quoted(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    bytes.replace('\r', ' ').replace('\n', ' ');
    if (!bytes.contains('"') && !bytes.contains(','))
        return bytes;
    return '"' + bytes.replace("\"", "\"\"") + '"';
}
} // namespace

QByteArray recordingHeader(ChannelSet channels)
{
    QByteArray line = QByteArray(RecordingFormat::TimeColumn.data()) + ',' +
                      RecordingFormat::WallTimeColumn.data();
    for (std::size_t index = 0; index < ChannelCount; ++index) {
        if (channels[index])
            line += ',' + RecordingFormat::columnName(index).toLatin1();
    }
    return line + ',' + RecordingFormat::MarkerColumn.data() + '\n';
}

TelemetryRecorder::TelemetryRecorder(const TelemetryClock& clock, QObject* parent)
    : QObject(parent), m_clock(clock)
{
    m_flushTimer.setInterval(FlushIntervalMs);
    connect(&m_flushTimer, &QTimer::timeout, this, &TelemetryRecorder::flush);
}

TelemetryRecorder::~TelemetryRecorder()
{
    const QSignalBlocker quiet(this);
    stop();
}

QString TelemetryRecorder::start(const QString& path, ChannelSet channels)
{
    stop();
    const QFileInfo info(path);
    m_file.setFileName(path);
    // A pipe without a reader would block.
    if (info.exists() && !info.isFile())
        return tr("'%1' is not a regular file.").arg(path);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return tr("Cannot write '%1': %2").arg(path, m_file.errorString());
    m_channels = channels;
    m_pending.clear();
    m_unwritten.clear();
    m_written = 0;
    m_samples = 0;
    m_startUs = m_clock.nowUs();
    m_lastUs = m_startUs;
    m_unwritten = recordingHeader(channels);
    if (!writeOut()) {
        const QString reason = m_file.errorString();
        m_file.close();
        return tr("Cannot write '%1': %2").arg(path, reason);
    }
    m_flushTimer.start();
    return {};
}

void TelemetryRecorder::stop()
{
    if (!isRecording())
        return;
    m_flushTimer.stop();
    writePendingMarkers(std::numeric_limits<std::int64_t>::max());
    flush();
    m_file.close();
}

/// Times in the file count from the start of the recording. What was missing before it is not a gap
/// in it.
QByteArray TelemetryRecorder::line(const Sample& sample, const QString& marker) const
{
    const double seconds = static_cast<double>(sample.timeUs - m_startUs) / double{UsPerSecond};
    QByteArray line = QByteArray::number(seconds, 'f', TimeDecimals) + ',' +
                      m_clock.timeOfDay(sample.timeUs).toString(Qt::ISODateWithMs).toLatin1();
    for (std::size_t index = 0; index < ChannelCount; ++index) {
        if (!m_channels[index])
            continue;
        line += ',';
        if (sample.values[index] != MissingValue)
            line += RecordingFormat::fieldText(sample.values[index], index);
    }
    const bool afterGap = sample.afterGap && m_samples > 0;
    return line + ',' + quoted(RecordingFormat::markerField(marker, afterGap)) + '\n';
}

void TelemetryRecorder::write(const Sample& sample)
{
    if (!isRecording())
        return;
    writePendingMarkers(sample.timeUs);
    m_unwritten += line(sample);
    m_lastUs = sample.timeUs;
    ++m_samples;
    if (m_unwritten.size() >= FlushSize)
        flush();
}

void TelemetryRecorder::mark(const Marker& marker)
{
    if (isRecording())
        m_pending.append(marker);
}

/// A marker can be reported after samples that are later; its line has the time of the last one
/// then.
void TelemetryRecorder::writePendingMarkers(std::int64_t endUs)
{
    for (const Marker& marker : std::exchange(m_pending, {})) {
        Sample empty;
        empty.timeUs = std::clamp(marker.timeUs, m_lastUs, std::max(m_lastUs, endUs));
        m_unwritten += line(empty, marker.text.left(Marker::MaxTextLength));
        m_lastUs = empty.timeUs;
    }
}

/// Writes what is complete. After a failure the file ends with the last complete line.
bool TelemetryRecorder::writeOut()
{
    const qint64 written = m_file.write(m_unwritten);
    if (written == m_unwritten.size()) {
        m_written += written;
        m_unwritten.clear();
        return true;
    }
    const qsizetype complete =
        written > 0 ? m_unwritten.first(written).lastIndexOf('\n') + 1 : qsizetype{0};
    m_file.resize(m_written + complete);
    return false;
}

void TelemetryRecorder::flush()
{
    if (!isRecording() || m_unwritten.isEmpty() || writeOut())
        return;
    const QString reason = m_file.errorString();
    m_flushTimer.stop();
    m_unwritten.clear();
    m_file.close();
    emit sig_failed(tr("The recording has ended: cannot write '%1': %2").arg(path(), reason));
}

} // namespace vanto
