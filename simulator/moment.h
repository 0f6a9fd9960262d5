#pragma once

#include <chrono>

namespace vanto::simulator
{

using Clock = std::chrono::steady_clock;
using Moment = Clock::time_point;

} // namespace vanto::simulator
