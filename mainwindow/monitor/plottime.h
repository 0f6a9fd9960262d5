#pragma once

#include "sample.h"

#include <cmath>

namespace vanto
{

/// The plots' axes are in seconds, samples in microseconds.
namespace PlotTime
{
inline double toSeconds(std::int64_t us)
{
    return static_cast<double>(us) / double{UsPerSecond};
}

inline std::int64_t toUs(double seconds)
{
    return std::llround(seconds * double{UsPerSecond});
}
} // namespace PlotTime

} // namespace vanto
