#include "monitorplot.h"

#include "fingernames.h"

#include <QImageWriter>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

// The header uses the keyword foreach of Qt, which this program is built without.
#define foreach(variable, container) for (variable : container)
#include <qcustomplot.h>
#undef foreach

namespace vanto
{

namespace
{
constexpr int PictureWidth = 1600; ///< pixels, of a saved picture
constexpr int PictureHeight = 900;
constexpr int MaxMarkers = 50; ///< with a label each, more would not be legible
constexpr int LegendColumns = 3;
constexpr double LeastStretch = 0.001; ///< a row of the layout gets what it needs
constexpr double LineWidth = 1.5;
constexpr int MiddleLightness = 128;

/// Distinguishable with all common kinds of color vision.
constexpr PerFinger<const char*> OnDark{"#56b4e9", "#e69f00", "#2fc79a",
                                        "#f0e442", "#e08fc0", "#ff7a45"};
constexpr PerFinger<const char*> OnLight{"#0072b2", "#a35a00", "#00704f",
                                         "#7a6a00", "#9c3f77", "#b8331f"};

double toSeconds(std::int64_t us)
{
    return static_cast<double>(us) / double{UsPerSecond};
}

std::int64_t toUs(double seconds)
{
    return std::llround(seconds * double{UsPerSecond});
}
} // namespace

MonitorPlot::MonitorPlot(Source source, QWidget* parent)
    : QWidget(parent), m_source(std::move(source)), m_plot(new QCustomPlot(this))
{
    setObjectName(QStringLiteral("monitorPlot"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_plot);
    m_plot->setAccessibleName(tr("Plot of the measured values"));
    m_plot->setMinimumSize(200, 120);
    m_plot->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
    m_plot->setNoAntialiasingOnDrag(true);
    m_plot->plotLayout()->clear();
    m_plot->setAutoAddPlottableToLegend(false);
    m_margins = new QCPMarginGroup(m_plot);
}

MonitorPlot::~MonitorPlot() = default;

QString MonitorPlot::titleOf(Quantity quantity)
{
    switch (quantity) {
    case Quantity::Current:
        return tr("Current");
    case Quantity::Position:
        return tr("Position");
    case Quantity::Angle:
        return tr("Angle (0.01°)");
    case Quantity::Force:
        break;
    }
    return tr("Force");
}

void MonitorPlot::setChannels(ChannelSet channels)
{
    if (channels == m_channels)
        return;
    m_channels = channels;
    m_plot->clearItems();
    m_plot->clearGraphs();
    m_plot->plotLayout()->clear();
    m_rows.clear();
    m_lines.clear();
    m_legend = new QCPLegend;
    m_plot->plotLayout()->addElement(0, 0, m_legend);
    m_plot->plotLayout()->setRowStretchFactor(0, LeastStretch);
    m_legend->setLayer(QStringLiteral("legend"));
    m_legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
    m_legend->setWrap(LegendColumns);
    m_legend->setBrush(Qt::NoBrush);
    m_legend->setBorderPen(Qt::NoPen);
    for (const Quantity quantity :
         {Quantity::Current, Quantity::Position, Quantity::Angle, Quantity::Force}) {
        if ((channels & channelsOf(quantity)).any())
            addRow(quantity);
    }
    for (QCPAxisRect* const row : m_rows)
        row->axis(QCPAxis::atBottom)->setTickLabels(row == m_rows.back());
    if (!m_rows.empty())
        m_rows.back()->axis(QCPAxis::atBottom)->setLabel(tr("Time (s)"));
    applyColors();
}

void MonitorPlot::addRow(Quantity quantity)
{
    auto* const row = new QCPAxisRect(m_plot);
    m_plot->plotLayout()->addElement(static_cast<int>(m_rows.size()) + 1, 0, row);
    row->setRangeDrag(Qt::Horizontal);
    row->setRangeZoom(Qt::Horizontal);
    QCPAxis* const time = row->axis(QCPAxis::atBottom);
    QCPAxis* const value = row->axis(QCPAxis::atLeft);
    value->setLabel(titleOf(quantity));
    value->setNumberFormat(QStringLiteral("f"));
    value->setNumberPrecision(0);
    time->setNumberFormat(QStringLiteral("f"));
    time->setNumberPrecision(1);
    connect(time, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
            [this](const QCPRange& range) {
                if (!m_showing)
                    changeTime(toUs(range.lower), toUs(range.upper));
            });
    row->setMarginGroup(QCP::msLeft | QCP::msRight, m_margins);
    const bool isFirst = m_rows.empty();
    m_rows.push_back(row);
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        const auto [ofChannel, finger] = Channel::at(channel);
        if (!m_channels[channel] || ofChannel != quantity)
            continue;
        QCPGraph* const graph = m_plot->addGraph(time, value);
        graph->setName(FingerNames::shown(finger));
        graph->setAdaptiveSampling(false); // already reduced to columns
        if (isFirst)
            graph->addToLegend(m_legend);
        m_lines.push_back({channel, graph});
    }
}

/// Called inside a replot of the part that the user has dragged.
void MonitorPlot::changeTime(std::int64_t fromUs, std::int64_t toUs)
{
    emit sig_timeChanged();
    QMetaObject::invokeMethod(
        this, [this, fromUs, toUs] { showTime(fromUs, toUs); }, Qt::QueuedConnection);
}

QColor MonitorPlot::fingerColor(std::size_t finger) const
{
    const bool dark = m_backgroundColor.lightness() < MiddleLightness;
    return QColor(QLatin1String((dark ? OnDark : OnLight).at(finger)));
}

void MonitorPlot::setTextColor(const QColor& color)
{
    m_textColor = color;
    applyColors();
}

void MonitorPlot::setBackgroundColor(const QColor& color)
{
    m_backgroundColor = color;
    applyColors();
    emit sig_colorsChanged();
}

void MonitorPlot::applyColors()
{
    QColor faint = m_textColor;
    faint.setAlphaF(0.25F);
    m_plot->setBackground(m_backgroundColor);
    for (QCPAxisRect* const row : m_rows) {
        for (QCPAxis* const axis : row->axes()) {
            axis->setBasePen(m_textColor);
            axis->setTickPen(m_textColor);
            axis->setSubTickPen(m_textColor);
            axis->setLabelColor(m_textColor);
            axis->setTickLabelColor(m_textColor);
            axis->grid()->setPen(QPen(faint, 1, Qt::DotLine));
            axis->grid()->setZeroLinePen(Qt::NoPen);
        }
    }
    if (m_legend)
        m_legend->setTextColor(m_textColor);
    for (const Line& line : m_lines)
        line.graph->setPen(QPen(fingerColor(Channel::at(line.channel).finger), LineWidth));
    m_plot->replot();
}

void MonitorPlot::showTime(std::int64_t fromUs, std::int64_t toUs)
{
    if (m_rows.empty() || toUs <= fromUs)
        return;
    const QScopedValueRollback showing(m_showing, true);
    const int columns = std::max(m_rows.front()->width(), 10);
    for (const Line& line : m_lines)
        fill(line, fromUs, toUs, columns);
    for (QCPAxisRect* const row : m_rows) {
        row->axis(QCPAxis::atBottom)->setRange(toSeconds(fromUs), toSeconds(toUs));
        QCPAxis* const value = row->axis(QCPAxis::atLeft);
        value->rescale();
        const QCPRange range = value->range();
        const double margin = std::max(range.size() * 0.05, 1.0);
        value->setRange(range.lower - margin, range.upper + margin);
    }
    showMarkers(fromUs, toUs);
    m_plot->replot(QCustomPlot::rpImmediateRefresh);
}

/// Two points for each column; a point that is not a number interrupts the line.
void MonitorPlot::fill(const Line& line, std::int64_t fromUs, std::int64_t toUs, int columns)
{
    const std::vector<Extent> extents = m_source.reduce(line.channel, fromUs, toUs, columns);
    const double from = toSeconds(fromUs);
    const double step = (toSeconds(toUs) - from) / columns;
    QVector<double> keys;
    QVector<double> values;
    const auto add = [&](double key, double value) {
        keys.append(key);
        values.append(value);
    };
    for (std::size_t i = 0; i < extents.size(); ++i) {
        const double key = from + (static_cast<double>(i) + 0.5) * step;
        if (extents[i].afterGap)
            add(key, std::numeric_limits<double>::quiet_NaN());
        if (extents[i].isEmpty())
            continue;
        add(key, extents[i].min);
        if (extents[i].max != extents[i].min)
            add(key, extents[i].max);
    }
    line.graph->setData(keys, values, true);
}

void MonitorPlot::showMarkers(std::int64_t fromUs, std::int64_t toUs)
{
    m_plot->clearItems();
    int count = 0;
    for (const Marker& marker : m_source.markers(fromUs, toUs)) {
        if (++count > MaxMarkers)
            return;
        const double time = toSeconds(marker.timeUs);
        for (QCPAxisRect* const row : m_rows) {
            auto* const line = new QCPItemStraightLine(m_plot);
            for (QCPItemPosition* const position : {line->point1, line->point2}) {
                position->setAxisRect(row);
                position->setAxes(row->axis(QCPAxis::atBottom), row->axis(QCPAxis::atLeft));
                position->setTypeX(QCPItemPosition::ptPlotCoords);
                position->setTypeY(QCPItemPosition::ptAxisRectRatio);
            }
            line->point1->setCoords(time, 0);
            line->point2->setCoords(time, 1);
            line->setClipAxisRect(row);
            line->setPen(QPen(m_textColor, 1, Qt::DashLine));
        }
        auto* const text = new QCPItemText(m_plot);
        QCPAxisRect* const lowest = m_rows.back();
        text->setClipAxisRect(lowest);
        text->position->setAxisRect(lowest);
        text->position->setAxes(lowest->axis(QCPAxis::atBottom), lowest->axis(QCPAxis::atLeft));
        text->position->setTypeX(QCPItemPosition::ptPlotCoords);
        text->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
        text->position->setCoords(time, 0.98);
        text->setPositionAlignment(Qt::AlignLeft | Qt::AlignBottom);
        text->setText(QLatin1Char(' ') + marker.text);
        text->setColor(m_textColor);
    }
}

QString MonitorPlot::savePicture(const QString& path) const
{
    // toPixmap() lays the plot out for the size of the picture.
    const QPixmap picture = m_plot->toPixmap(PictureWidth, PictureHeight);
    QImageWriter writer(path);
    return writer.write(picture.toImage()) ? QString() : writer.errorString();
}

} // namespace vanto
