#pragma once

#include "recording.h"

#include <QDialog>

namespace vanto
{

class MonitorPlot;
class PlotPanel;

/// A recording in a window of its own, which is not modal.
class RecordingView : public QDialog
{
    Q_OBJECT
public:
    /// Lets the user choose a file, and shows it or the reason of a failure.
    static void choose(QWidget* parent);
    /// Lets the user choose a file for a picture of the plot.
    static void savePicture(const MonitorPlot* plot, QWidget* parent);

private:
    RecordingView(Recording recording, const QString& path, QWidget* parent);

    QString description() const;
    void showWhole();

    Recording m_recording;
    PlotPanel* m_panel;
};

} // namespace vanto
