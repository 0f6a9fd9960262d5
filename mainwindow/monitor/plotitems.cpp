#include "plotitems.h"

#include "plotlibrary.h"

#include <QFontMetrics>

namespace vanto
{

namespace
{
constexpr double LabelMargin = 0.02; ///< of the height of the row
constexpr double LabelIndent = 0.005;

void place(QCPItemPosition* position, QCPAxisRect* row, QCPItemPosition::PositionType x,
           QCPItemPosition::PositionType y)
{
    position->setAxisRect(row);
    position->setAxes(row->axis(QCPAxis::atBottom), row->axis(QCPAxis::atLeft));
    position->setTypeX(x);
    position->setTypeY(y);
}

QCPItemStraightLine* addLine(QCPAxisRect* row, QCPItemPosition::PositionType x,
                             QCPItemPosition::PositionType y, const QPen& pen)
{
    auto* const line = new QCPItemStraightLine(row->parentPlot());
    place(line->point1, row, x, y);
    place(line->point2, row, x, y);
    line->setClipAxisRect(row);
    line->setPen(pen);
    line->setAntialiased(false);
    return line;
}

QCPItemText* addText(QCPAxisRect* row, QCPItemPosition::PositionType x,
                     QCPItemPosition::PositionType y, const QString& text, const QColor& color)
{
    auto* const label = new QCPItemText(row->parentPlot());
    label->setClipAxisRect(row);
    place(label->position, row, x, y);
    label->setText(text);
    label->setColor(color);
    return label;
}

class VerticalLines : public QCPAbstractItem
{
public:
    VerticalLines(QCPAxisRect* row, QVector<double> times, const QPen& pen)
        : QCPAbstractItem(row->parentPlot()), m_row(row), m_times(std::move(times)), m_pen(pen)
    {
        setClipAxisRect(row);
        setAntialiased(false);
    }
    double selectTest(const QPointF& /*position*/, bool /*onlySelectable*/,
                      QVariant* /*details*/) const override
    {
        return -1; // cannot be selected
    }

protected:
    void draw(QCPPainter* painter) override
    {
        const QCPAxis* const axis = m_row->axis(QCPAxis::atBottom);
        QVector<QLineF> lines;
        lines.reserve(m_times.size());
        for (const double time : std::as_const(m_times)) {
            const double x = axis->coordToPixel(time);
            lines.append({x, double(m_row->top()), x, double(m_row->bottom())});
        }
        painter->setPen(m_pen);
        painter->drawLines(lines);
    }

private:
    QCPAxisRect* m_row;
    QVector<double> m_times;
    QPen m_pen;
};
} // namespace

void PlotItems::addVerticalLines(QCPAxisRect* row, const QVector<double>& times, const QPen& pen)
{
    if (!times.isEmpty())
        new VerticalLines(row, times, pen); // the plot owns it
}

void PlotItems::addVerticalLine(QCPAxisRect* row, double time, const QPen& pen)
{
    QCPItemStraightLine* const line =
        addLine(row, QCPItemPosition::ptPlotCoords, QCPItemPosition::ptAxisRectRatio, pen);
    line->point1->setCoords(time, 0);
    line->point2->setCoords(time, 1);
}

void PlotItems::addHorizontalLine(QCPAxisRect* row, double value, const QPen& pen)
{
    QCPItemStraightLine* const line =
        addLine(row, QCPItemPosition::ptAxisRectRatio, QCPItemPosition::ptPlotCoords, pen);
    line->point1->setCoords(0, value);
    line->point2->setCoords(1, value);
}

void PlotItems::addLabel(QCPAxisRect* row, double time, Edge edge, const QString& text,
                         const QColor& color)
{
    QCPItemText* const label =
        addText(row, QCPItemPosition::ptPlotCoords, QCPItemPosition::ptAxisRectRatio,
                QLatin1Char(' ') + text + QLatin1Char(' '), color);
    const bool isTop = edge == Edge::Top;
    label->position->setCoords(time, isTop ? LabelMargin : 1 - LabelMargin);
    const double end = row->axis(QCPAxis::atBottom)->coordToPixel(time) +
                       QFontMetrics(label->font()).horizontalAdvance(label->text());
    label->setPositionAlignment((end > row->right() ? Qt::AlignRight : Qt::AlignLeft) |
                                (isTop ? Qt::AlignTop : Qt::AlignBottom));
}

void PlotItems::addValueLabel(QCPAxisRect* row, double value, const QString& text,
                              const QColor& color)
{
    QCPItemText* const label =
        addText(row, QCPItemPosition::ptAxisRectRatio, QCPItemPosition::ptPlotCoords, text, color);
    label->position->setCoords(LabelIndent, value);
    const bool isHigh = row->axis(QCPAxis::atLeft)->coordToPixel(value) < row->center().y();
    label->setPositionAlignment(Qt::AlignLeft | (isHigh ? Qt::AlignTop : Qt::AlignBottom));
}

} // namespace vanto
