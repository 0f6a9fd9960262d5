#pragma once

#include "sample.h"
#include "telemetryclock.h"

#include <QFile>
#include <QObject>
#include <QTimer>

namespace vanto
{

/// The first line of a recording, with its line break.
QByteArray recordingHeader(ChannelSet channels);

/// Writes samples to a CSV file while they arrive, see docs/recording-file.md.
///
/// A sample reaches the file within a second. If writing fails, for example because the disk
/// is full, the recording ends, and the file keeps all complete lines.
class TelemetryRecorder : public QObject
{
    Q_OBJECT
public:
    /// `clock` is the clock of the samples and must outlive the recorder.
    explicit TelemetryRecorder(const TelemetryClock& clock, QObject* parent = nullptr);
    ~TelemetryRecorder() override;

    /// Starts a file, replacing an existing one. Returns the reason of a failure, or an empty
    /// string.
    QString start(const QString& path, ChannelSet channels);
    void stop();
    bool isRecording() const { return m_file.isOpen(); }

    /// Ignored while nothing is being recorded. Times must not decrease, nor precede the start.
    void write(const Sample& sample);
    /// Written in a line of its own, before the next sample. Longer texts than a marker's are cut.
    void mark(const Marker& marker);

    QString path() const { return m_file.fileName(); }
    std::uint64_t sampleCount() const { return m_samples; }
    /// Bytes of the file and of what is about to be written.
    qint64 size() const { return m_written + m_unwritten.size(); }
    /// From the start to the last line.
    std::int64_t durationUs() const { return m_lastUs - m_startUs; }

signals:
    /// The recording has ended because of a failure; `message` is for the user.
    void sig_failed(const QString& message);

private:
    QByteArray line(const Sample& sample, const QString& marker = {}) const;
    bool writeOut();
    void flush();
    void writePendingMarkers(std::int64_t endUs);

    const TelemetryClock& m_clock;
    QFile m_file;
    ChannelSet m_channels;
    QList<Marker> m_pending;
    QByteArray m_unwritten; ///< complete lines
    qint64 m_written = 0;   ///< bytes of complete lines in the file
    std::uint64_t m_samples = 0;
    std::int64_t m_startUs = 0; ///< of the recording, by the clock
    std::int64_t m_lastUs = 0;  ///< of the last line
    QTimer m_flushTimer;
};

} // namespace vanto
