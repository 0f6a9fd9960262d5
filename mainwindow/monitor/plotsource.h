#pragma once

#include "samplebuffer.h"

#include <functional>

namespace vanto
{

/// Where a plot gets its samples from; the functions are those of SampleBuffer.
struct PlotSource {
    std::function<std::vector<Extent>(std::size_t channel, std::int64_t fromUs, std::int64_t toUs,
                                      int columns)>
        reduce;
    std::function<QList<Marker>(std::int64_t fromUs, std::int64_t toUs)> markers;
    std::function<Extent(std::size_t channel, std::int64_t timeUs)> valueAt;
    std::function<RangeStatistics(std::size_t channel, std::int64_t fromUs, std::int64_t toUs)>
        statistics;

    /// `samples` refers to a SampleBuffer or a Recording; a plain pointer must outlive the source.
    template<class SamplesPointer>
    static PlotSource of(SamplesPointer samples)
    {
        return {
            [samples](std::size_t channel, std::int64_t from, std::int64_t to, int columns) {
                return samples->reduce(channel, from, to, columns);
            },
            [samples](std::int64_t from, std::int64_t to) { return samples->markers(from, to); },
            [samples](std::size_t channel, std::int64_t time) {
                return samples->valueAt(channel, time);
            },
            [samples](std::size_t channel, std::int64_t from, std::int64_t to) {
                return samples->statistics(channel, from, to);
            }};
    }
};

} // namespace vanto
