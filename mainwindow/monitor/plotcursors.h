#pragma once

#include <QObject>
#include <QPointer>

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

class QCPAxisRect;
class QCustomPlot;
class QMouseEvent;
class QPen;

namespace vanto
{

using CursorTimes = std::array<std::int64_t, 2>; ///< us

/// The two cursors of a plot: lines at two times. The user drags a line, or clicks to place the
/// nearer one.
class PlotCursors : public QObject
{
    Q_OBJECT
public:
    explicit PlotCursors(QCustomPlot* plot);

    /// Without times there are no cursors.
    void setTimes(std::optional<CursorTimes> times) { m_times = times; }
    std::optional<CursorTimes> times() const { return m_times; }
    void addItems(const std::vector<QCPAxisRect*>& rows, const QPen& pen) const;

    bool isDragging() const { return m_dragged.has_value(); }

signals:
    /// By the user; the caller paints the plot.
    void sig_moved();

private:
    void press(const QMouseEvent& event);
    void drag(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    /// A double click is not a click: the cursor returns.
    void doubleClick();
    std::size_t nearer(const QCPAxisRect& row, double x) const;
    double pixelOf(const QCPAxisRect& row, std::size_t cursor) const;
    void move(std::size_t cursor, const QCPAxisRect& row, double x);

    QCustomPlot* m_plot;
    std::optional<CursorTimes> m_times;
    std::optional<CursorTimes> m_beforeClick;
    QPointer<QCPAxisRect> m_pressed; ///< row of a press, until it is a drag of the time
    std::optional<std::size_t> m_dragged;
    double m_pressX = 0;
};

} // namespace vanto
