#include "samplebuffer.h"

namespace vanto
{

void SampleBuffer::reserve()
{
    if (!m_times.empty())
        return;
    m_times.resize(m_capacity);
    m_gaps.resize(m_capacity);
    for (auto& values : m_values)
        values.resize(m_capacity);
}

void SampleBuffer::append(const Sample& sample)
{
    reserve();
    const std::size_t to = place(m_size);
    m_times[to] = sample.timeUs;
    m_gaps[to] = sample.afterGap;
    for (std::size_t channel = 0; channel < ChannelCount; ++channel)
        m_values[channel][to] = sample.values[channel];
    if (m_size < m_capacity)
        ++m_size;
    else
        m_first = place(1);
}

void SampleBuffer::addMarker(const Marker& marker)
{
    m_markers.append(marker);
    if (m_markers.size() > qsizetype{MaxMarkers})
        m_markers.removeFirst();
}

void SampleBuffer::clear()
{
    m_first = 0;
    m_size = 0;
    m_markers.clear();
}

std::size_t SampleBuffer::memory() const
{
    return m_capacity * (sizeof(std::int64_t) + ChannelCount * sizeof(std::int32_t)) +
           m_capacity / 8;
}

Sample SampleBuffer::at(std::size_t index) const
{
    const std::size_t from = place(index);
    Sample sample;
    sample.timeUs = m_times[from];
    sample.afterGap = m_gaps[from];
    for (std::size_t channel = 0; channel < ChannelCount; ++channel)
        sample.values[channel] = m_values[channel][from];
    return sample;
}

std::optional<Sample> SampleBuffer::last() const
{
    return isEmpty() ? std::nullopt : std::optional(at(m_size - 1));
}

std::size_t SampleBuffer::indexAt(std::int64_t timeUs) const
{
    std::size_t low = 0;
    std::size_t high = m_size;
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (timeAt(middle) < timeUs)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::vector<Extent> SampleBuffer::reduce(std::size_t channel, std::int64_t fromUs,
                                         std::int64_t toUs, int columns) const
{
    const auto& values = m_values.at(channel);
    return reduceToColumns(
        indexAt(fromUs), m_size, fromUs, toUs, columns,
        [&](std::size_t index, Extent& column) {
            const std::size_t from = place(index);
            column.add(values[from]);
            column.afterGap = column.afterGap || m_gaps[from];
        },
        [this](std::size_t index) { return timeAt(index); });
}

Extent SampleBuffer::valueAt(std::size_t channel, std::int64_t timeUs) const
{
    Extent extent;
    const auto row = rowValidAt(
        timeUs, indexAt(timeUs + 1), m_size, [this](std::size_t index) { return timeAt(index); },
        [this](std::size_t index) { return m_gaps[place(index)]; });
    if (row)
        extent.add(m_values.at(channel)[place(*row)]);
    return extent;
}

RangeStatistics SampleBuffer::statistics(std::size_t channel, std::int64_t fromUs,
                                         std::int64_t toUs) const
{
    const auto& values = m_values.at(channel);
    const std::size_t end = indexAt(toUs + 1);
    RangeSum sum;
    for (std::size_t index = indexAt(fromUs); index < end; ++index)
        sum.add(values[place(index)]);
    return sum.result(true);
}

QList<Marker> SampleBuffer::markers(std::int64_t fromUs, std::int64_t toUs) const
{
    QList<Marker> found;
    for (const Marker& marker : m_markers) {
        if (marker.timeUs >= fromUs && marker.timeUs < toUs)
            found.append(marker);
    }
    return found;
}

} // namespace vanto
