#include "plotnavigation.h"

#include "plotcursors.h"
#include "plotlibrary.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace vanto
{

namespace
{
constexpr double WheelFactor = 0.85; ///< of the shown time, for one step of the wheel
} // namespace

PlotNavigation::PlotNavigation(QCustomPlot* plot, const PlotCursors* cursors)
    : QObject(plot), m_plot(plot), m_cursors(cursors)
{
    connect(plot, &QCustomPlot::mousePress, this, [this](QMouseEvent* event) { press(*event); });
    connect(plot, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) { drag(*event); });
    connect(plot, &QCustomPlot::mouseRelease, this, [this] { m_pressed = nullptr; });
    connect(plot, &QCustomPlot::mouseWheel, this, [this](QWheelEvent* event) { zoom(*event); });
}

void PlotNavigation::press(const QMouseEvent& event)
{
    m_pressed = nullptr;
    m_isDragging = false;
    if (event.button() != Qt::LeftButton || m_cursors->isDragging())
        return;
    m_pressed = m_plot->axisRectAt(event.position());
    m_x = event.position().x();
}

void PlotNavigation::drag(const QMouseEvent& event)
{
    if (!m_pressed)
        return;
    const double distance = event.position().x() - m_x;
    m_isDragging = m_isDragging || std::abs(distance) >= QApplication::startDragDistance();
    if (!m_isDragging || distance == 0)
        return;
    m_x = event.position().x();
    const double share = distance / std::max(m_pressed->width(), 1);
    emit sig_scaled(-share, 1 - share);
}

/// The time under the mouse stays there.
void PlotNavigation::zoom(const QWheelEvent& event)
{
    const QCPAxisRect* const row = m_plot->axisRectAt(event.position());
    const double steps =
        event.angleDelta().y() / static_cast<double>(QWheelEvent::DefaultDeltasPerStep);
    if (!row || steps == 0)
        return;
    const double place = (event.position().x() - row->left()) / std::max(row->width(), 1);
    const double factor = std::pow(WheelFactor, steps);
    emit sig_scaled(place * (1 - factor), place + (1 - place) * factor);
}

} // namespace vanto
