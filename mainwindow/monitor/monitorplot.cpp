#include "monitorplot.h"

#include "columnlines.h"
#include "fingernames.h"
#include "motionguard.h"
#include "plotcolors.h"
#include "plotcursors.h"
#include "plotitems.h"
#include "plotlibrary.h"
#include "plotnavigation.h"
#include "plottime.h"
#include "targethistory.h"
#include "vantoprotocol.h"

#include <QFocusEvent>
#include <QImageWriter>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <limits>

namespace vanto
{

namespace
{
constexpr int PictureWidth = 1600; ///< pixels, of a saved picture
constexpr int PictureHeight = 900;
constexpr int MinLabelWidth = 10; ///< pixels, of a marker
constexpr int MaxLabelWidth = 300;
constexpr int LegendColumns = 6;
constexpr double LeastStretch = 0.001; ///< a row of the layout gets what it needs
constexpr int LineWidth = 1;           ///< pixels; lines of more take a hundred times as long
constexpr int FocusMargin = 2;         ///< pixels
constexpr int LeastColumns = 10;
constexpr int MaxLimitRatio = 2;        ///< of a shown limit to the highest current
constexpr double ValueMargin = 0.05;    ///< of the range of the values
constexpr double LeastOfWholeTicks = 5; ///< of a range; the ticks of a smaller one have decimals
constexpr double ScrollStep = 0.1;      ///< of the shown time, by key
constexpr double ZoomFactor = 0.8;      ///< by key
constexpr double MinSpan = 0.01;        ///< seconds, by key and mouse
constexpr double MaxTime = 1e9;         ///< seconds, to either side of 0
constexpr int PaintIntervalMs = 67;     ///< while the user drags or zooms
/// Of a plotted value to that of the hand.
double scaleOf(Quantity quantity)
{
    return quantity == Quantity::Angle ? 1 / HundredthsPerDegree : 1;
}

/// The plot of the library paints at each change of its size.
class ResizablePlot : public QCustomPlot
{
public:
    ResizablePlot(QWidget* parent, IdleTask* painting) : QCustomPlot(parent), m_painting(painting)
    {
    }

protected:
    void resizeEvent(QResizeEvent* /*event*/) override
    {
        setViewport(rect());
        m_painting->run();
    }

private:
    IdleTask* m_painting;
};
} // namespace

MonitorPlot::MonitorPlot(PlotSource source, QWidget* parent)
    : QWidget(parent),
      m_source(std::move(source)),
      m_plot(new ResizablePlot(this, &m_painting)),
      m_cursors(new PlotCursors(m_plot)),
      m_painting([this] { paint(); }, this, PaintIntervalMs)
{
    setObjectName(QStringLiteral("monitorPlot"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(FocusMargin, FocusMargin, FocusMargin, FocusMargin);
    layout->addWidget(m_plot);
    m_plot->setAccessibleName(tr("Plot of the measured values"));
    m_plot->setAccessibleDescription(
        tr("Left and Right move the time, Plus and Minus zoom it, Home returns."));
    m_plot->setMinimumSize(200, 120);
    m_plot->setFocusPolicy(Qt::StrongFocus);
    m_plot->installEventFilter(this);
    m_plot->plotLayout()->clear();
    m_plot->setAutoAddPlottableToLegend(false);
    m_margins = new QCPMarginGroup(m_plot);
    connect(m_plot, &QCustomPlot::mouseDoubleClick, this, &MonitorPlot::sig_returnRequested);
    connect(m_cursors, &PlotCursors::sig_moved, &m_painting, &IdleTask::request);
    connect(new PlotNavigation(m_plot, m_cursors), &PlotNavigation::sig_scaled, this,
            &MonitorPlot::scaleTime);
}

MonitorPlot::~MonitorPlot() = default;

void MonitorPlot::setChannels(ChannelSet channels)
{
    if (channels == m_channels)
        return;
    m_channels = channels;
    m_plot->clearItems();
    m_plot->clearPlottables();
    m_plot->plotLayout()->clear();
    m_rows.clear();
    m_lines.clear();
    for (const Quantity quantity :
         {Quantity::Current, Quantity::Position, Quantity::Angle, Quantity::Force}) {
        if ((channels & channelsOf(quantity)).any())
            addRow(quantity);
    }
    for (const Row& row : m_rows)
        row.rect->axis(QCPAxis::atBottom)->setTickLabels(&row == &m_rows.back());
    if (!m_rows.empty())
        m_rows.back().rect->axis(QCPAxis::atBottom)->setLabel(tr("Time (s)"));
    applyColors();
}

void MonitorPlot::addRow(Quantity quantity)
{
    constexpr std::array titles{QT_TR_NOOP("Current (mA)"), QT_TR_NOOP("Position"),
                                QT_TR_NOOP("Angle (°)"), QT_TR_NOOP("Force")};
    auto* const row = new QCPAxisRect(m_plot);
    m_plot->plotLayout()->addElement(static_cast<int>(m_rows.size()), 0, row);
    QCPAxis* const time = row->axis(QCPAxis::atBottom);
    QCPAxis* const value = row->axis(QCPAxis::atLeft);
    value->setLabel(tr(titles.at(static_cast<std::size_t>(quantity))));
    value->setNumberFormat(QStringLiteral("f"));
    time->setNumberFormat(QStringLiteral("f"));
    time->setNumberPrecision(1);
    row->setMarginGroup(QCP::msLeft | QCP::msRight, m_margins);
    m_rows.push_back({row, quantity, {}, new ColumnLines(row)}); // the plot owns it
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        if (m_channels[channel] && Channel::at(channel).quantity == quantity)
            addLine(channel);
    }
}

void MonitorPlot::addLine(std::size_t channel)
{
    const QCPAxisRect* const row = m_rows.back().rect;
    QCPGraph* const target =
        m_plot->addGraph(row->axis(QCPAxis::atBottom), row->axis(QCPAxis::atLeft));
    target->setAntialiased(false); // three times as fast
    target->setLineStyle(QCPGraph::lsStepLeft);
    m_lines.push_back({channel, m_rows.size() - 1, target, {}, {}});
}

void MonitorPlot::setFingerShown(std::size_t finger, bool shown)
{
    m_hidden.set(finger, !shown);
    showAgain();
}

void MonitorPlot::setOverlay(std::optional<PlotSource> overlay, std::int64_t offsetUs)
{
    m_overlay = std::move(overlay);
    m_overlayOffsetUs = offsetUs;
    for (Line& line : m_lines)
        line.overlayColumns.clear();
    showAgain();
}

void MonitorPlot::clear()
{
    for (Line& line : m_lines)
        line.columns.clear();
}

void MonitorPlot::setLimits(std::optional<FingerLimits> limits)
{
    m_limits = limits;
}

QColor MonitorPlot::fingerColor(std::size_t finger) const
{
    return PlotColors::finger(finger, m_backgroundColor);
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
    for (const Row& row : m_rows) {
        for (QCPAxis* const axis : row.rect->axes()) {
            axis->setBasePen(m_textColor);
            axis->setTickPen(m_textColor);
            axis->setSubTickPen(m_textColor);
            axis->setLabelColor(m_textColor);
            axis->setTickLabelColor(m_textColor);
            axis->grid()->setPen(QPen(faint, 1, Qt::DotLine));
            axis->grid()->setZeroLinePen(Qt::NoPen);
        }
    }
    for (const Line& line : m_lines) {
        const QColor color = fingerColor(Channel::at(line.channel).finger);
        line.target->setPen(QPen(color, LineWidth, Qt::DashLine));
    }
    m_painting.run();
}

void MonitorPlot::showTime(std::int64_t fromUs, std::int64_t toUs)
{
    if (toUs <= fromUs)
        return;
    m_fromUs = fromUs;
    m_toUs = toUs;
    m_painting.run();
}

/// Only as work of m_painting.
void MonitorPlot::paint()
{
    if (m_toUs > m_fromUs)
        fillLines();
    for (Row& row : m_rows) {
        if (m_toUs > m_fromUs)
            row.rect->axis(QCPAxis::atBottom)
                ->setRange(PlotTime::toSeconds(m_fromUs), PlotTime::toSeconds(m_toUs));
        scaleValues(row);
    }
    addItems();
    m_plot->replot(QCustomPlot::rpImmediateRefresh);
}

void MonitorPlot::fillLines()
{
    std::vector<std::vector<ColumnLines::Line>> overlays(m_rows.size());
    std::vector<std::vector<ColumnLines::Line>> lines(m_rows.size());
    for (Row& row : m_rows)
        row.range = {};
    for (Line& line : m_lines) {
        const std::size_t finger = Channel::at(line.channel).finger;
        const bool isShown = isFingerShown(finger);
        line.target->setVisible(isShown && m_targets);
        if (!isShown)
            continue;
        lines[line.row].push_back({values(m_source, line, line.columns, 0), fingerColor(finger)});
        if (m_overlay)
            overlays[line.row].push_back(
                {values(*m_overlay, line, line.overlayColumns, m_overlayOffsetUs),
                 PlotColors::overlay(finger, m_backgroundColor), true});
        if (m_targets)
            fillTargets(line);
    }
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        std::vector<ColumnLines::Line>& all = overlays[row]; // below the others
        std::ranges::move(lines[row], std::back_inserter(all));
        m_rows[row].lines->setLines(std::move(all));
    }
}

ExtentLine MonitorPlot::values(const PlotSource& source, const Line& line, ColumnCache& cache,
                               std::int64_t offsetUs)
{
    Row& row = m_rows[line.row];
    const ColumnCache::Columns columns =
        cache.update(source, line.channel, m_fromUs - offsetUs, m_toUs - offsetUs,
                     std::max(row.rect->width(), LeastColumns));
    for (const Extent& extent : columns.extents) {
        row.range.add(extent.min);
        row.range.add(extent.max);
    }
    return {columns.extents, PlotTime::toSeconds(columns.fromUs + offsetUs + columns.widthUs / 2),
            PlotTime::toSeconds(columns.widthUs), scaleOf(row.quantity)};
}

void MonitorPlot::fillTargets(const Line& line)
{
    QVector<QCPGraphData> points;
    const double scale = scaleOf(m_rows[line.row].quantity);
    const auto steps = m_targets->steps(line.channel, m_fromUs, m_toUs);
    for (const TargetHistory::Step& step : steps) {
        const bool isTarget = step.value != MissingValue;
        m_rows[line.row].range.add(step.value);
        points.append({PlotTime::toSeconds(step.timeUs),
                       isTarget ? step.value * scale : std::numeric_limits<double>::quiet_NaN()});
    }
    if (!steps.empty() && steps.back().value != MissingValue)
        points.append({PlotTime::toSeconds(m_toUs), steps.back().value * scale});
    line.target->data()->set(points, true);
}

std::vector<LimitLine> MonitorPlot::limits() const
{
    if (!m_limits)
        return {};
    return limitLines(*m_limits, [this](std::size_t finger) { return isFingerShown(finger); });
}

void MonitorPlot::scaleValues(Row& row) const
{
    if (row.quantity == Quantity::Current) {
        // One far above the currents would leave no room for them.
        const std::int64_t highest =
            std::int64_t{MaxLimitRatio} * std::max(row.range.max, MotionGuard::CurrentLimitMa);
        for (const LimitLine& limit : limits()) {
            if (limit.value <= highest)
                row.range.add(limit.value);
        }
    }
    if (row.range.isEmpty())
        return;
    const double scale = scaleOf(row.quantity);
    const QCPRange range(row.range.min * scale, row.range.max * scale);
    const double margin = std::max(range.size() * ValueMargin, 1.0);
    QCPAxis* const axis = row.rect->axis(QCPAxis::atLeft);
    axis->setRange(range.lower - margin, range.upper + margin);
    axis->setNumberPrecision(axis->range().size() < LeastOfWholeTicks ? 1 : 0);
}

void MonitorPlot::addItems()
{
    m_plot->clearItems();
    addMarkers();
    if (!m_rows.empty() && m_rows.front().quantity == Quantity::Current)
        addLimits(m_rows.front().rect);
    m_cursors->addItems(rects(), QPen(m_textColor, 1));
}

/// Labels that would overlap are left out.
void MonitorPlot::addLimits(QCPAxisRect* row)
{
    const QCPAxis* const axis = row->axis(QCPAxis::atLeft);
    std::vector<double> used;
    for (const LimitLine& limit : limits()) {
        const QColor color = limit.finger ? fingerColor(*limit.finger) : m_textColor;
        PlotItems::addHorizontalLine(row, limit.value, QPen(color, 1, Qt::DotLine));
        const double pixel = axis->coordToPixel(limit.value);
        const bool isFree = std::ranges::all_of(used, [&](double other) {
            return std::abs(other - pixel) >= m_plot->fontMetrics().height();
        });
        if (!isFree)
            continue;
        used.push_back(pixel);
        PlotItems::addValueLabel(row, limit.value, limit.text, color);
    }
}

std::vector<QCPAxisRect*> MonitorPlot::rects() const
{
    std::vector<QCPAxisRect*> rects;
    for (const Row& row : m_rows)
        rects.push_back(row.rect);
    return rects;
}

/// The newest ones first: labels that would overlap are left out, and a column has one line.
void MonitorPlot::addMarkers()
{
    if (m_rows.empty())
        return;
    const QCPAxis* const axis = m_rows.back().rect->axis(QCPAxis::atBottom);
    const QFontMetrics metrics = m_plot->fontMetrics();
    double line = std::numeric_limits<double>::infinity(); // pixels, of the last line
    double free = line;                                    // where the next label has to end
    QVector<double> times;
    const QList<Marker> markers = m_source.markers(m_fromUs, m_toUs);
    for (auto marker = markers.crbegin(); marker != markers.crend(); ++marker) {
        const double time = PlotTime::toSeconds(marker->timeUs);
        const double pixel = axis->coordToPixel(time);
        if (line - pixel >= 1)
            times.append(time);
        line = std::min(line, pixel);
        if (free - pixel < MinLabelWidth)
            continue;
        const QString text = metrics.elidedText(marker->text, Qt::ElideRight, MaxLabelWidth);
        const int width = metrics.horizontalAdvance(text + QLatin1String("  "));
        if (free - pixel < width)
            continue;
        free = pixel + width > m_rows.back().rect->right() ? pixel - width : pixel;
        PlotItems::addLabel(m_rows.back().rect, time, PlotItems::Edge::Bottom, text, m_textColor);
    }
    for (const Row& row : m_rows)
        PlotItems::addVerticalLines(row.rect, times, QPen(m_textColor, 1, Qt::DashLine));
}

/// The new time, in shares of the shown one.
void MonitorPlot::scaleTime(double from, double to)
{
    const double begin = PlotTime::toSeconds(m_fromUs);
    const double shown = std::max(PlotTime::toSeconds(m_toUs) - begin, MinSpan);
    const double middle = begin + (from + to) / 2 * shown;
    const double span = std::clamp((to - from) * shown, MinSpan, 2 * MaxTime);
    const double newBegin = std::clamp(middle - span / 2, -MaxTime, MaxTime - span);
    emit sig_timeChanged();
    m_fromUs = PlotTime::toUs(newBegin);
    m_toUs = PlotTime::toUs(newBegin + span);
    m_painting.request();
}

void MonitorPlot::keyPressEvent(QKeyEvent* event)
{
    constexpr double In = (1 - ZoomFactor) / 2;
    constexpr double Out = (1 / ZoomFactor - 1) / 2;
    switch (event->key()) {
    case Qt::Key_Left:
        return scaleTime(-ScrollStep, 1 - ScrollStep);
    case Qt::Key_Right:
        return scaleTime(ScrollStep, 1 + ScrollStep);
    case Qt::Key_Plus:
        return scaleTime(In, 1 - In);
    case Qt::Key_Minus:
        return scaleTime(-Out, 1 + Out);
    case Qt::Key_Home:
        emit sig_returnRequested();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

bool MonitorPlot::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update(); // the frame
    return QWidget::eventFilter(watched, event);
}

void MonitorPlot::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (!m_plot->hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), FocusMargin));
    const int half = FocusMargin / 2;
    painter.drawRect(rect().adjusted(half, half, -half, -half));
}

/// With a legend, which the window shows beside the plot.
QString MonitorPlot::savePicture(const QString& path) const
{
    auto* const legend = new QCPLegend;
    m_plot->plotLayout()->insertRow(0);
    m_plot->plotLayout()->addElement(0, 0, legend);
    m_plot->plotLayout()->setRowStretchFactor(0, LeastStretch);
    legend->setLayer(QStringLiteral("legend"));
    legend->setFillOrder(QCPLayoutGrid::foColumnsFirst);
    legend->setWrap(LegendColumns);
    legend->setBrush(Qt::NoBrush);
    legend->setBorderPen(Qt::NoPen);
    legend->setTextColor(m_textColor);
    std::vector<QCPGraph*> entries;
    for (const Line& line : m_lines) {
        const std::size_t finger = Channel::at(line.channel).finger;
        if (line.row != 0 || !isFingerShown(finger))
            continue;
        QCPGraph* const entry = m_plot->addGraph(line.target->keyAxis(), line.target->valueAxis());
        entry->setName(FingerNames::shown(finger));
        entry->setPen(QPen(fingerColor(finger), LineWidth));
        entry->addToLegend(legend);
        entries.push_back(entry);
    }
    // toPixmap() lays the plot out for the size of the picture.
    const QPixmap picture = m_plot->toPixmap(PictureWidth, PictureHeight);
    m_plot->plotLayout()->remove(legend);
    for (QCPGraph* const entry : entries)
        m_plot->removeGraph(entry);
    m_plot->plotLayout()->simplify();
    m_plot->replot(QCustomPlot::rpImmediateRefresh);
    QImageWriter writer(path);
    return writer.write(picture.toImage()) ? QString() : writer.errorString();
}

} // namespace vanto
