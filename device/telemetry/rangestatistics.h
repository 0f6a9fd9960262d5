#pragma once

#include "sample.h"

#include <algorithm>

namespace vanto
{

/// The values of one channel between two times, both included.
struct RangeStatistics {
    std::int32_t min = MissingValue;
    std::int32_t max = MissingValue;
    std::optional<double> mean; ///< not known if there are only minima and maxima

    bool isEmpty() const { return min == MissingValue; }
};

/// Sums up values for RangeStatistics; missing ones are left out.
class RangeSum
{
public:
    void add(std::int32_t value)
    {
        if (value == MissingValue)
            return;
        m_range.min = m_count == 0 ? value : std::min(m_range.min, value);
        m_range.max = std::max(m_range.max, value);
        m_sum += value;
        ++m_count;
    }
    RangeStatistics result(bool isExact) const
    {
        RangeStatistics range = m_range;
        if (isExact && m_count > 0)
            range.mean = static_cast<double>(m_sum) / static_cast<double>(m_count);
        return range;
    }

private:
    RangeStatistics m_range;
    std::int64_t m_sum = 0;
    std::int64_t m_count = 0;
};

/// The row that is valid at a time. `next` is the first row that is later, `size` the number of
/// rows. A row is valid until the next one, but not across a gap; the last one is valid for as long
/// as the one before it.
template<class TimeAt, class IsAfterGap>
std::optional<std::size_t> rowValidAt(std::int64_t timeUs, std::size_t next, std::size_t size,
                                      TimeAt timeAt, IsAfterGap isAfterGap)
{
    if (next == 0)
        return std::nullopt;
    const std::size_t row = next - 1;
    const std::int64_t age = timeUs - timeAt(row);
    if (next < size)
        return age > 0 && isAfterGap(next) ? std::nullopt : std::optional(row);
    const std::int64_t period = row > 0 ? timeAt(row) - timeAt(row - 1) : 0;
    return age > period ? std::nullopt : std::optional(row);
}

} // namespace vanto
