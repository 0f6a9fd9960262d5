#include "telemetryrecorder.h"

#include "recordingformat.h"

#include <QFileInfo>
#include <QSignalBlocker>
#include <QStringList>

#include <utility>

namespace vanto
{

namespace
{
constexpr int FlushIntervalMs = 1000;
constexpr qsizetype FlushSize = 64 * 1024; ///< bytes

QByteArray quoted(const QString& text)
{
    QByteArray bytes = text.toUtf8();
    bytes.replace('\r', ' ').replace('\n', ' ');
    if (!bytes.contains('"') && !bytes.contains(','))
        return bytes;
    return '"' + bytes.replace("\"", "\"\"") + '"';
}

QByteArray timeFields(std::int64_t timeUs, const TelemetryClock& clock)
{
    return QByteArray::number(static_cast<double>(timeUs) / double{UsPerSecond}, 'f', 6) + ',' +
           clock.timeOfDay(timeUs).toString(Qt::ISODateWithMs).toLatin1();
}
} // namespace

QByteArray recordingHeader(ChannelSet channels)
{
    QByteArray line = QByteArray(RecordingFormat::TimeColumn.data()) + ',' +
                      RecordingFormat::WallTimeColumn.data();
    for (std::size_t index = 0; index < ChannelCount; ++index) {
        if (channels[index])
            line += ',' + Channel::at(index).name().toLatin1();
    }
    return line + ',' + RecordingFormat::MarkerColumn.data() + '\n';
}

QByteArray recordingLine(const Sample& sample, ChannelSet channels, const TelemetryClock& clock,
                         const QStringList& markers)
{
    QByteArray line = timeFields(sample.timeUs, clock);
    for (std::size_t index = 0; index < ChannelCount; ++index) {
        if (!channels[index])
            continue;
        line += ',';
        if (sample.values[index] != MissingValue)
            line += QByteArray::number(sample.values[index]);
    }
    QStringList texts = markers;
    if (sample.afterGap)
        texts.prepend(RecordingFormat::Gap);
    return line + ',' + quoted(texts.join(RecordingFormat::MarkerSeparator)) + '\n';
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
    writePendingMarkers();
    flush();
    m_file.close();
}

void TelemetryRecorder::write(const Sample& sample)
{
    if (!isRecording())
        return;
    QStringList markers;
    for (const Marker& marker : std::exchange(m_pending, {}))
        markers.append(marker.text);
    ++m_samples;
    m_unwritten += recordingLine(sample, m_channels, m_clock, markers);
    if (m_unwritten.size() >= FlushSize)
        flush();
}

void TelemetryRecorder::mark(const Marker& marker)
{
    if (isRecording())
        m_pending.append(marker);
}

void TelemetryRecorder::writePendingMarkers()
{
    for (const Marker& marker : std::exchange(m_pending, {})) {
        Sample empty;
        empty.timeUs = marker.timeUs;
        m_unwritten += recordingLine(empty, m_channels, m_clock, {marker.text});
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
