#include "columnspans.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace vanto
{

namespace
{
struct Point {
    double x;
    double y;
};

class SpanWriter
{
public:
    SpanWriter(int width, int height)
        : m_spans(static_cast<std::size_t>(width)), m_width(width), m_height(height)
    {
    }

    void addVertical(double x, double from, double to)
    {
        add(static_cast<long>(std::floor(x)), rowOf(from), rowOf(to));
    }

    /// `from` must not be to the right of `to`.
    void addLine(const Point& from, const Point& to)
    {
        const long first = static_cast<long>(std::floor(from.x));
        const long last = static_cast<long>(std::floor(to.x));
        if (first == last) {
            add(first, rowOf(from.y), rowOf(to.y));
            return;
        }
        const double slope = (to.y - from.y) / (to.x - from.x);
        int row = rowOf(from.y);
        const long end = std::min(last, long{m_width});
        for (long column = std::max(first, -1L); column < end; ++column) {
            const double right = static_cast<double>(column) + 1.0;
            const int next = rowOf(from.y + (right - from.x) * slope);
            add(column, row, next > row ? next - 1 : next < row ? next + 1 : row);
            row = next;
        }
        add(last, row, rowOf(to.y));
    }

    std::vector<PixelSpan> take() { return std::move(m_spans); }

private:
    int rowOf(double y) const
    {
        return static_cast<int>(std::floor(std::clamp(y, -1.0, static_cast<double>(m_height))));
    }

    void add(long column, int from, int to)
    {
        const auto [top, bottom] = std::minmax(from, to);
        if (column < 0 || column >= m_width || bottom < 0 || top >= m_height)
            return;
        m_spans[static_cast<std::size_t>(column)].add(
            {std::max(top, 0), std::min(bottom, m_height - 1)});
    }

    std::vector<PixelSpan> m_spans;
    int m_width;
    int m_height;
};
} // namespace

std::vector<PixelSpan> ColumnSpans::of(const ExtentLine& line, const PixelScale& x,
                                       const PixelScale& y, int width, int height)
{
    SpanWriter writer(width, height);
    std::optional<Point> last;
    bool isDot = false; // the last part of the time is not joined to an earlier one
    const double pixelsPerPart = line.step * x.perUnit;
    const auto endDot = [&] {
        if (isDot)
            writer.addLine(*last, {last->x + std::max(pixelsPerPart, 1.0), last->y}); // visible
    };
    const double firstX = x.at(line.firstTime);
    for (std::size_t i = 0; i < line.extents.size(); ++i) {
        const Extent& extent = line.extents[i];
        if (extent.afterGap) {
            endDot();
            last.reset();
            isDot = false;
        }
        if (extent.isEmpty())
            continue;
        const double column = firstX + static_cast<double>(i) * pixelsPerPart;
        const double low = y.at(extent.min * line.scale);
        const double high = y.at(extent.max * line.scale);
        // The nearer end first: a line to the other one would be painted twice.
        const bool isFalling = last && std::abs(high - last->y) < std::abs(low - last->y);
        if (last)
            writer.addLine(*last, {column, isFalling ? high : low});
        isDot = !last && extent.min == extent.max;
        writer.addVertical(column, low, high);
        last = {column, isFalling ? low : high};
    }
    endDot();
    return writer.take();
}

} // namespace vanto
