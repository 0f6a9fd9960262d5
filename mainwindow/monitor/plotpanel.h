#pragma once

#include "idletask.h"
#include "limitlines.h"
#include "plotsource.h"

#include <QWidget>

class QCheckBox;

namespace vanto
{

class CursorPanel;
class FingerLegend;
class MonitorPlot;
class OverlayBar;
class Recording;
class TargetHistory;

/// A plot with its legend, its cursors and an overlay.
class PlotPanel : public QWidget
{
    Q_OBJECT
public:
    PlotPanel(PlotSource source, QWidget* parent);

    MonitorPlot* plot() { return m_plot; }
    void setChannels(ChannelSet channels);
    void showTime(std::int64_t fromUs, std::int64_t toUs);
    /// Necessary if the source has removed samples.
    void clear();
    /// Shows the values in the legend.
    void showSample(const Sample& sample);
    /// Without this there are no lines of limits.
    void setLimits(const FingerLimits& limits);
    void setTargets(const TargetHistory* targets);

signals:
    /// The user looks at something, or wants to see the newest samples again.
    void sig_pauseRequested();
    void sig_returnRequested();

private:
    QWidget* createOptions();
    QCheckBox* addOption(const char* name, const QString& text, void (PlotPanel::*toggled)());
    void chooseOverlay();
    void applyOverlay();
    void placeAtMarker();
    void applyLimits();
    void toggleCursors();
    void editCursors();
    void showChannels();
    void showCursorValues();

    PlotSource m_source;
    FingerLegend* m_legend;
    MonitorPlot* m_plot;
    QCheckBox* m_showLimits = nullptr;
    QCheckBox* m_showCursors = nullptr;
    CursorPanel* m_cursors;
    OverlayBar* m_overlay;
    FingerLimits m_limits;
    Sample m_last;         ///< in the legend
    ChannelSet m_channels; ///< that are chosen
    IdleTask m_rebuilding; ///< after another choice of channels
    IdleTask m_evaluating; ///< at and between the cursors
};

} // namespace vanto
