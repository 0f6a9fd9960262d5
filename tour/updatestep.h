#pragma once

#include "tourrunner.h"

namespace vanto
{

/// Updates the firmware of the hand at node 5 from a file while the other hands are switched off.
QString firmwareUpdate(TourRunner& tour);

} // namespace vanto
