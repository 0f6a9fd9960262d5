#include "targethistory.h"

#include <algorithm>

namespace vanto
{

void TargetHistory::append(std::size_t channel, const Step& step)
{
    std::deque<Step>& steps = m_steps.at(channel);
    const std::int32_t last = steps.empty() ? MissingValue : steps.back().value;
    if (step.value == last)
        return;
    steps.push_back(step);
    if (steps.size() > MaxSteps)
        steps.pop_front();
}

void TargetHistory::add(std::int64_t timeUs, Quantity quantity, std::uint8_t finger,
                        std::int32_t value)
{
    const bool isPosition = quantity == Quantity::Position;
    append(Channel{quantity, finger}.index(), {timeUs, value});
    append(Channel{isPosition ? Quantity::Angle : Quantity::Position, finger}.index(),
           {timeUs, MissingValue});
}

void TargetHistory::end(std::int64_t timeUs)
{
    for (std::size_t channel = 0; channel < ChannelCount; ++channel)
        append(channel, {timeUs, MissingValue});
}

void TargetHistory::clear()
{
    m_steps = {};
}

std::vector<TargetHistory::Step> TargetHistory::steps(std::size_t channel, std::int64_t fromUs,
                                                      std::int64_t toUs) const
{
    const std::deque<Step>& steps = m_steps.at(channel);
    auto first = std::ranges::upper_bound(steps, fromUs, {}, &Step::timeUs);
    const auto end = std::ranges::lower_bound(steps, toUs, {}, &Step::timeUs);
    std::vector<Step> found;
    if (first != steps.begin() && first[-1].value != MissingValue)
        found.push_back({fromUs, first[-1].value});
    for (; first < end; ++first)
        found.push_back(*first);
    return found;
}

} // namespace vanto
