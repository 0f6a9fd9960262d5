#pragma once

#include "tourrunner.h"

namespace vanto
{

/// Moves a finger and checks what the monitor shows.
QString monitor(TourRunner& tour);

} // namespace vanto
