#pragma once

#include "plotsource.h"

#include <cstdint>
#include <vector>

namespace vanto
{

/// The extents of one channel in columns of a fixed grid of times. While the shown time moves on,
/// only those of new samples are determined again.
class ColumnCache
{
public:
    struct Columns {
        std::int64_t fromUs = 0; ///< of the first column
        std::int64_t widthUs = 1;
        const std::vector<Extent>& extents;
    };

    /// The columns from the one that contains `fromUs` to the one before `toUs`, about `count` of
    /// them. Samples that the source has added must not be older than those it had.
    Columns update(const PlotSource& source, std::size_t channel, std::int64_t fromUs,
                   std::int64_t toUs, int count);
    /// Necessary if samples were removed or replaced, or for another source or channel.
    void clear() { m_extents.clear(); }

private:
    void dropBefore(std::int64_t column);
    void dropUnfinished();

    std::int64_t m_widthUs = 1;
    std::int64_t m_first = 0; ///< number of the first column; column 0 begins at time 0
    std::vector<Extent> m_extents;
};

} // namespace vanto
