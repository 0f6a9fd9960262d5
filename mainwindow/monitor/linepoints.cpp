#include "linepoints.h"

#include "plotlibrary.h"
#include "plottime.h"

#include <cmath>
#include <limits>

namespace vanto
{

QVector<QCPGraphData> LinePoints::ofColumns(const ColumnCache::Columns& columns,
                                            std::int64_t offsetUs, double scale)
{
    const double from = PlotTime::toSeconds(columns.fromUs + offsetUs);
    const double step = PlotTime::toSeconds(columns.widthUs);
    QVector<QCPGraphData> points;
    points.reserve(2 * static_cast<qsizetype>(columns.extents.size()));
    qsizetype begin = 0; // of the points since the last interruption
    const auto endPart = [&] {
        if (points.size() - begin == 1)
            points.append({points.constLast().key + step, points.constLast().value}); // visible
    };
    for (std::size_t i = 0; i < columns.extents.size(); ++i) {
        const double key = from + (static_cast<double>(i) + 0.5) * step;
        const Extent& extent = columns.extents[i];
        if (extent.afterGap) {
            endPart();
            points.append({key, std::numeric_limits<double>::quiet_NaN()});
            begin = points.size();
        }
        if (extent.isEmpty())
            continue;
        const double low = extent.min * scale;
        const double high = extent.max * scale;
        // The nearer end first: a line to the other one would be painted twice.
        const double before = points.isEmpty() ? low : points.constLast().value;
        const bool isFalling = std::abs(high - before) < std::abs(low - before);
        points.append({key, isFalling ? high : low});
        if (extent.max != extent.min)
            points.append({key, isFalling ? low : high});
    }
    endPart();
    return points;
}

} // namespace vanto
