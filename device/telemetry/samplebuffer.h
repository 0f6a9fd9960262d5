#pragma once

#include "rangestatistics.h"
#include "sample.h"

#include <QList>

#include <algorithm>
#include <array>
#include <vector>

namespace vanto
{

/// The smallest and the largest value in one pixel column of a plot.
struct Extent {
    std::int32_t min = MissingValue;
    std::int32_t max = MissingValue;
    bool afterGap = false; ///< a gap of the samples ends in this column

    bool isEmpty() const { return min == MissingValue; }
    void add(std::int32_t value)
    {
        if (value == MissingValue)
            return;
        min = isEmpty() ? value : std::min(min, value);
        max = std::max(max, value); // an empty one has the smallest number
    }
};

/// Adds each of the rows `first` to `end` whose time is before `toUs` to its column, of `columns`
/// equal parts of the time from `fromUs`, which no row precedes. `add` adds a row to an extent.
template<class Add, class TimeAt>
std::vector<Extent> reduceToColumns(std::size_t first, std::size_t end, std::int64_t fromUs,
                                    std::int64_t toUs, int columns, Add add, TimeAt timeAt)
{
    if (columns <= 0 || toUs <= fromUs)
        return {};
    std::vector<Extent> extents(static_cast<std::size_t>(columns));
    const double columnsPerUs = columns / static_cast<double>(toUs - fromUs);
    std::size_t row = first;
    while (row < end && timeAt(row) < toUs) {
        const auto place =
            static_cast<std::size_t>(static_cast<double>(timeAt(row) - fromUs) * columnsPerUs);
        const std::size_t column = std::min(place, extents.size() - 1);
        // Comparisons with the end of the column are faster than a multiplication for each row.
        const double columnEnd = static_cast<double>(column + 1) / columnsPerUs;
        const std::int64_t endUs = std::min(fromUs + static_cast<std::int64_t>(columnEnd), toUs);
        Extent extent = extents[column];
        do
            add(row++, extent);
        while (row < end && timeAt(row) < endUs);
        extents[column] = extent;
    }
    return extents;
}

/// The newest samples and markers, in a ring of fixed size; the oldest ones are overwritten.
///
/// Times must not decrease. The memory is reserved on the first sample.
class SampleBuffer
{
public:
    /// 43 minutes at 100 samples a second, in about 26 MB.
    static constexpr std::size_t DefaultCapacity = std::size_t{1} << 18;
    static constexpr std::size_t MaxMarkers = 10'000;

    explicit SampleBuffer(std::size_t capacity = DefaultCapacity) : m_capacity(capacity) {}

    void append(const Sample& sample);
    void addMarker(const Marker& marker);
    void clear();

    std::size_t capacity() const { return m_capacity; }
    std::size_t size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    /// Bytes that a full buffer uses, without the texts of its markers.
    std::size_t memory() const;

    /// `index` 0 is the oldest sample.
    Sample at(std::size_t index) const;
    std::int64_t timeAt(std::size_t index) const { return m_times[place(index)]; }
    /// The index of the first sample that is not older than `timeUs`; size() if there is none.
    std::size_t indexAt(std::int64_t timeUs) const;
    std::optional<Sample> last() const;

    /// The extents of a channel in `columns` equal parts of the time from `fromUs` to `toUs`, for a
    /// plot. Each sample belongs to one column.
    std::vector<Extent> reduce(std::size_t channel, std::int64_t fromUs, std::int64_t toUs,
                               int columns) const;
    /// The value at a time; empty before the first sample, after the last one and in a gap.
    Extent valueAt(std::size_t channel, std::int64_t timeUs) const;
    RangeStatistics statistics(std::size_t channel, std::int64_t fromUs, std::int64_t toUs) const;
    /// The markers from `fromUs` up to, but not including, `toUs`.
    QList<Marker> markers(std::int64_t fromUs, std::int64_t toUs) const;

private:
    /// `index` up to the capacity; without a division, which takes most of the time of reduce().
    std::size_t place(std::size_t index) const
    {
        const std::size_t place = m_first + index;
        return place < m_capacity ? place : place - m_capacity;
    }
    void reserve();

    std::size_t m_capacity;
    std::size_t m_first = 0; ///< place of the oldest sample
    std::size_t m_size = 0;
    std::vector<std::int64_t> m_times;
    std::vector<bool> m_gaps;
    std::array<std::vector<std::int32_t>, ChannelCount> m_values;
    QList<Marker> m_markers;
};

} // namespace vanto
