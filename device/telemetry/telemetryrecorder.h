#pragma once

#include "sample.h"
#include "telemetryclock.h"

#include <QFile>
#include <QObject>
#include <QTimer>

namespace vanto
{

/// One line of a recording, with its line break. `markers` are joined with "; ".
QByteArray recordingHeader(ChannelSet channels);
QByteArray recordingLine(const Sample& sample, ChannelSet channels, const TelemetryClock& clock,
                         const QStringList& markers);

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

    /// Ignored while nothing is being recorded.
    void write(const Sample& sample);
    /// Written in the line of the next sample, or in a line of its own at the end.
    void mark(const Marker& marker);

    QString path() const { return m_file.fileName(); }
    std::uint64_t sampleCount() const { return m_samples; }

signals:
    /// The recording has ended because of a failure; `message` is for the user.
    void sig_failed(const QString& message);

private:
    bool writeOut();
    void flush();
    void writePendingMarkers();

    const TelemetryClock& m_clock;
    QFile m_file;
    ChannelSet m_channels;
    QList<Marker> m_pending;
    QByteArray m_unwritten; ///< complete lines
    qint64 m_written = 0;   ///< bytes of complete lines in the file
    std::uint64_t m_samples = 0;
    QTimer m_flushTimer;
};

} // namespace vanto
