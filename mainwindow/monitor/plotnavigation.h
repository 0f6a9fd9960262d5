#pragma once

#include <QObject>
#include <QPointer>

class QCPAxisRect;
class QCustomPlot;
class QMouseEvent;
class QWheelEvent;

namespace vanto
{

class PlotCursors;

/// Moves and zooms the time of a plot by the mouse. The plot's own interactions would paint during
/// an exchange with a hand.
class PlotNavigation : public QObject
{
    Q_OBJECT
public:
    /// A drag of a cursor does not move the time. Create `cursors` first.
    PlotNavigation(QCustomPlot* plot, const PlotCursors* cursors);

signals:
    /// The new time, in shares of the shown one: 0 is its begin, 1 its end.
    void sig_scaled(double from, double to);

private:
    void press(const QMouseEvent& event);
    void drag(const QMouseEvent& event);
    void zoom(const QWheelEvent& event);

    QCustomPlot* m_plot;
    const PlotCursors* m_cursors;
    QPointer<QCPAxisRect> m_pressed;
    bool m_isDragging = false;
    double m_x = 0; ///< of the press, then of the last event
};

} // namespace vanto
