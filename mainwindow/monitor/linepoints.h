#pragma once

#include "columncache.h"

#include <QVector>

class QCPGraphData;

namespace vanto
{

/// What QCustomPlot paints of a line.
namespace LinePoints
{
/// Two points for each column; a point that is not a number interrupts the line. `offsetUs` is
/// added to the times, and `scale` multiplies the values.
QVector<QCPGraphData> ofColumns(const ColumnCache::Columns& columns, std::int64_t offsetUs,
                                double scale);
} // namespace LinePoints

} // namespace vanto
