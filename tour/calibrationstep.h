#pragma once

#include "tourrunner.h"

namespace vanto
{

/// Calibrates the hand at node 5 and checks the stored data.
QString calibration(TourRunner& tour);

} // namespace vanto
