#pragma once

#include "recording.h"

#include <QDialog>

namespace vanto
{

class MonitorPlot;

/// A recording in a window of its own, which is not modal.
class RecordingView : public QDialog
{
    Q_OBJECT
public:
    /// Reads the file in the background, with a progress dialog for a large one, and shows it or
    /// the reason of a failure.
    static void open(const QString& path, QWidget* parent);
    /// Lets the user choose a file for a picture of the plot.
    static void savePicture(const MonitorPlot* plot, QWidget* parent);

private:
    RecordingView(Recording recording, const QString& path, QWidget* parent);

    static void showResult(RecordingLoader& loader, const QString& path, QWidget* parent);
    QString description() const;

    Recording m_recording;
    MonitorPlot* m_plot;
};

} // namespace vanto
