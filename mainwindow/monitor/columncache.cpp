#include "columncache.h"

#include <algorithm>

namespace vanto
{

namespace
{
std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor)
{
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}
} // namespace

ColumnCache::Columns ColumnCache::update(const PlotSource& source, std::size_t channel,
                                         std::int64_t fromUs, std::int64_t toUs, int count)
{
    const std::int64_t width = std::max((toUs - fromUs) / count, std::int64_t{1});
    const std::int64_t first = floorDivide(fromUs, width);
    const std::int64_t end = floorDivide(toUs - 1, width) + 1;
    if (width != m_widthUs || first < m_first)
        clear();
    m_widthUs = width;
    dropBefore(first);
    dropUnfinished();
    const std::int64_t next = first + static_cast<std::int64_t>(m_extents.size());
    if (next < end) {
        const std::vector<Extent> added =
            source.reduce(channel, next * width, end * width, static_cast<int>(end - next));
        m_extents.insert(m_extents.end(), added.begin(), added.end());
    } else {
        m_extents.resize(static_cast<std::size_t>(end - first));
    }
    return {first * width, width, m_extents};
}

void ColumnCache::dropBefore(std::int64_t column)
{
    const auto size = static_cast<std::int64_t>(m_extents.size());
    const std::int64_t count = m_extents.empty() ? 0 : std::clamp(column - m_first, {}, size);
    m_extents.erase(m_extents.begin(), m_extents.begin() + count);
    m_first = column;
}

/// The last column with values can get more of them, and the empty ones after it, too.
void ColumnCache::dropUnfinished()
{
    while (!m_extents.empty() && m_extents.back().isEmpty())
        m_extents.pop_back();
    if (!m_extents.empty())
        m_extents.pop_back();
}

} // namespace vanto
