#pragma once

#include <chrono>

namespace vanto::simulator
{

using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;

} // namespace vanto::simulator
