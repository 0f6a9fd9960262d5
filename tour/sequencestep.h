#pragma once

#include "tourrunner.h"

namespace vanto
{

/// Loads an example, plays it from one of its steps and saves it.
QString sequencePage(TourRunner& tour);

} // namespace vanto
