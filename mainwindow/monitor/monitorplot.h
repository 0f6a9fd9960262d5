#pragma once

#include "samplebuffer.h"

#include <QWidget>

#include <functional>

class QCPAxisRect;
class QCPGraph;
class QCPLegend;
class QCPMarginGroup;
class QCustomPlot;

namespace vanto
{

/// Plots samples over time: one row for each quantity, one line for each finger. A line shows the
/// minimum and the maximum of each pixel column. The user can drag and zoom the time.
class MonitorPlot : public QWidget
{
    Q_OBJECT
    // The style sheet sets these.
    Q_PROPERTY(QColor textColor MEMBER m_textColor WRITE setTextColor)
    Q_PROPERTY(QColor backgroundColor MEMBER m_backgroundColor WRITE setBackgroundColor)
public:
    /// Where the samples come from; the functions are those of SampleBuffer.
    struct Source {
        std::function<std::vector<Extent>(std::size_t channel, std::int64_t fromUs,
                                          std::int64_t toUs, int columns)>
            reduce;
        std::function<QList<Marker>(std::int64_t fromUs, std::int64_t toUs)> markers;
    };

    MonitorPlot(Source source, QWidget* parent);
    ~MonitorPlot() override;

    void setChannels(ChannelSet channels);
    /// Paints the samples of this time.
    void showTime(std::int64_t fromUs, std::int64_t toUs);
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
    void sig_colorsChanged();

private:
    struct Line {
        std::size_t channel;
        QCPGraph* graph;
    };

    void addRow(Quantity quantity);
    void changeTime(std::int64_t fromUs, std::int64_t toUs);
    void applyColors();
    void fill(const Line& line, std::int64_t fromUs, std::int64_t toUs, int columns);
    void showMarkers(std::int64_t fromUs, std::int64_t toUs);
    static QString titleOf(Quantity quantity);

    Source m_source;
    QCustomPlot* m_plot;
    QCPMarginGroup* m_margins = nullptr;
    QCPLegend* m_legend = nullptr; ///< null before the first setChannels()
    ChannelSet m_channels;
    std::vector<QCPAxisRect*> m_rows;
    std::vector<Line> m_lines;
    bool m_showing = false; ///< showTime() is changing the axes
    QColor m_textColor = Qt::black;
    QColor m_backgroundColor = Qt::white;
};

} // namespace vanto
