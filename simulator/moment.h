#pragma once

#include <chrono>

namespace simulator
{

using Clock = std::chrono::steady_clock;
using Moment = Clock::time_point;

} // namespace simulator
