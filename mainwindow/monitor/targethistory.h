#pragma once

#include "sample.h"

#include <deque>
#include <vector>

namespace vanto
{

/// The targets of the fingers over time, as they have been sent. A finger has a position or an
/// angle as its target, never both.
class TargetHistory
{
public:
    static constexpr std::size_t MaxSteps = 20'000; ///< for each channel; older ones are dropped

    struct Step {
        std::int64_t timeUs;
        std::int32_t value; ///< MissingValue: none
    };

    /// Times must not decrease. `quantity` is Position or Angle.
    void add(std::int64_t timeUs, Quantity quantity, std::uint8_t finger, std::int32_t value);
    /// The fingers have no target any more.
    void end(std::int64_t timeUs);
    void clear();
    /// The target at `fromUs` and all later ones before `toUs`.
    std::vector<Step> steps(std::size_t channel, std::int64_t fromUs, std::int64_t toUs) const;

private:
    void append(std::size_t channel, const Step& step);

    std::array<std::deque<Step>, ChannelCount> m_steps;
};

} // namespace vanto
