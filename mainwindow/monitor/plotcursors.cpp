#include "plotcursors.h"

#include "plotitems.h"
#include "plotlibrary.h"
#include "plottime.h"

#include <QApplication>
#include <QMouseEvent>

namespace vanto
{

namespace
{
constexpr double GrabDistance = 6; ///< pixels
} // namespace

PlotCursors::PlotCursors(QCustomPlot* plot) : QObject(plot), m_plot(plot)
{
    connect(plot, &QCustomPlot::mousePress, this, [this](QMouseEvent* event) { press(*event); });
    connect(plot, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) { drag(*event); });
    connect(plot, &QCustomPlot::mouseRelease, this,
            [this](QMouseEvent* event) { release(*event); });
    connect(plot, &QCustomPlot::mouseDoubleClick, this, &PlotCursors::doubleClick);
}

double PlotCursors::pixelOf(const QCPAxisRect& row, std::size_t cursor) const
{
    return row.axis(QCPAxis::atBottom)->coordToPixel(PlotTime::toSeconds(m_times->at(cursor)));
}

std::size_t PlotCursors::nearer(const QCPAxisRect& row, double x) const
{
    return std::abs(pixelOf(row, 1) - x) < std::abs(pixelOf(row, 0) - x) ? 1 : 0;
}

void PlotCursors::move(std::size_t cursor, const QCPAxisRect& row, double x)
{
    m_times->at(cursor) = PlotTime::toUs(row.axis(QCPAxis::atBottom)->pixelToCoord(x));
    emit sig_moved();
}

void PlotCursors::press(const QMouseEvent& event)
{
    m_pressed = nullptr;
    m_dragged.reset();
    if (!m_times || event.button() != Qt::LeftButton)
        return;
    m_pressX = event.position().x();
    m_pressed = m_plot->axisRectAt(event.position());
    if (!m_pressed)
        return;
    const std::size_t cursor = nearer(*m_pressed, m_pressX);
    if (std::abs(pixelOf(*m_pressed, cursor) - m_pressX) > GrabDistance)
        return;
    m_dragged = cursor;
}

void PlotCursors::drag(const QMouseEvent& event)
{
    if (!m_pressed || !m_times)
        return;
    const double x = event.position().x();
    if (m_dragged)
        move(*m_dragged, *m_pressed, x);
    else if (std::abs(x - m_pressX) >= QApplication::startDragDistance())
        m_pressed = nullptr;
}

void PlotCursors::release(const QMouseEvent& event)
{
    const QPointer<QCPAxisRect> row = std::exchange(m_pressed, nullptr);
    if (!row || !m_times || std::exchange(m_dragged, std::nullopt))
        return;
    m_beforeClick = m_times;
    move(nearer(*row, m_pressX), *row, event.position().x());
}

void PlotCursors::doubleClick()
{
    if (!m_times || !m_beforeClick)
        return;
    m_times = std::exchange(m_beforeClick, std::nullopt);
    emit sig_moved();
}

void PlotCursors::addItems(const std::vector<QCPAxisRect*>& rows, const QPen& pen) const
{
    if (!m_times || rows.empty())
        return;
    for (std::size_t cursor = 0; cursor < m_times->size(); ++cursor) {
        const double time = PlotTime::toSeconds(m_times->at(cursor));
        for (QCPAxisRect* const row : rows)
            PlotItems::addVerticalLine(row, time, pen);
        PlotItems::addLabel(rows.front(), time, PlotItems::Edge::Top, QString::number(cursor + 1),
                            pen.color());
    }
}

} // namespace vanto
