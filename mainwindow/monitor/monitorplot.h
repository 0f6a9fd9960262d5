#pragma once

#include "columncache.h"
#include "idletask.h"
#include "limitlines.h"
#include "plotsource.h"

#include <QWidget>

#include <bitset>

class QCPAxisRect;
class QCPGraph;
class QCPMarginGroup;
class QCustomPlot;

namespace vanto
{

class ColumnLines;
class PlotCursors;
class TargetHistory;
struct ExtentLine;

/// Plots samples over time: one row for each quantity, one line for each finger. A line shows the
/// minimum and the maximum of each pixel column. The user can drag and zoom the time, also with the
/// keys Left, Right, Plus and Minus.
class MonitorPlot : public QWidget
{
    Q_OBJECT
    // The style sheet sets these.
    Q_PROPERTY(QColor textColor MEMBER m_textColor WRITE setTextColor)
    Q_PROPERTY(QColor backgroundColor MEMBER m_backgroundColor WRITE setBackgroundColor)
public:
    MonitorPlot(PlotSource source, QWidget* parent);
    ~MonitorPlot() override;

    void setChannels(ChannelSet channels);
    ChannelSet channels() const { return m_channels; }
    /// Necessary if the source has removed samples.
    void clear();
    /// All fingers are shown at first.
    void setFingerShown(std::size_t finger, bool shown);
    bool isFingerShown(std::size_t finger) const { return !m_hidden[finger]; }
    /// Other samples in the same rows, as lighter, dotted lines. Their time 0 is at `offsetUs`.
    void setOverlay(std::optional<PlotSource> overlay, std::int64_t offsetUs);
    void setOverlayOffset(std::int64_t us) { m_overlayOffsetUs = us; }
    /// Without limits there are no lines for them.
    void setLimits(std::optional<FingerLimits> limits);
    /// Plotted as dashed lines. `targets` must outlive the plot.
    void setTargets(const TargetHistory* targets) { m_targets = targets; }
    PlotCursors* cursors() { return m_cursors; }

    /// Paints the samples of this time, as soon as the line is idle.
    void showTime(std::int64_t fromUs, std::int64_t toUs);
    /// Paints the same time again, after a change.
    void showAgain() { m_painting.run(); }
    std::int64_t fromUs() const { return m_fromUs; }
    std::int64_t toUs() const { return m_toUs; }
    /// Returns the reason of a failure, or an empty string. The suffix of the path selects the
    /// format.
    QString savePicture(const QString& path) const;

    void setTextColor(const QColor& color);
    void setBackgroundColor(const QColor& color);

    /// The color of the lines of a finger.
    QColor fingerColor(std::size_t finger) const;

signals:
    /// The user has dragged or zoomed.
    void sig_timeChanged();
    /// The user wants to see the newest samples again, or all of a file.
    void sig_returnRequested();
    void sig_colorsChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Row {
        QCPAxisRect* rect;
        Quantity quantity;
        Extent range; ///< of what is plotted, in units of the hand
        ColumnLines* lines;
    };
    struct Line {
        std::size_t channel;
        std::size_t row;
        QCPGraph* target;
        ColumnCache columns;
        ColumnCache overlayColumns;
    };

    void addRow(Quantity quantity);
    void addLine(std::size_t channel);
    void paint();
    void fillLines();
    void scaleTime(double from, double to);
    void applyColors();
    ExtentLine values(const PlotSource& source, const Line& line, ColumnCache& cache,
                      std::int64_t offsetUs);
    void fillTargets(const Line& line);
    void scaleValues(Row& row) const;
    void addItems();
    void addMarkers();
    void addLimits(QCPAxisRect* row);
    std::vector<LimitLine> limits() const;
    std::vector<QCPAxisRect*> rects() const;

    PlotSource m_source;
    std::optional<PlotSource> m_overlay;
    std::int64_t m_overlayOffsetUs = 0;
    const TargetHistory* m_targets = nullptr;
    std::optional<FingerLimits> m_limits;
    QCustomPlot* m_plot;
    PlotCursors* m_cursors;
    QCPMarginGroup* m_margins = nullptr;
    ChannelSet m_channels;
    std::bitset<FingerCount> m_hidden;
    std::vector<Row> m_rows;
    std::vector<Line> m_lines;
    std::int64_t m_fromUs = 0;
    std::int64_t m_toUs = 0;
    QColor m_textColor = Qt::black;
    QColor m_backgroundColor = Qt::white;
    IdleTask m_painting;
};

} // namespace vanto
