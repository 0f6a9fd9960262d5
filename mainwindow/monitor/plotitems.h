#pragma once

#include <QColor>
#include <QPen>
#include <QString>
#include <QVector>

class QCPAxisRect;

namespace vanto
{

/// Lines and texts in a row of a plot, which owns them. Times are in seconds.
namespace PlotItems
{
void addVerticalLine(QCPAxisRect* row, double time, const QPen& pen);
/// As one item, as each item takes time.
void addVerticalLines(QCPAxisRect* row, const QVector<double>& times, const QPen& pen);
void addHorizontalLine(QCPAxisRect* row, double value, const QPen& pen);

enum class Edge { Top, Bottom };
/// To the right of the line at this time, or to its left if there is not enough room.
void addLabel(QCPAxisRect* row, double time, Edge edge, const QString& text, const QColor& color);
/// At the left end of the line at this value.
void addValueLabel(QCPAxisRect* row, double value, const QString& text, const QColor& color);
} // namespace PlotItems

} // namespace vanto
