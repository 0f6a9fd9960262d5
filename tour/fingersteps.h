#pragma once

#include "tourrunner.h"

namespace vanto
{

/// Moves fingers by position and by angle and checks their currents.
QString runPage(TourRunner& tour);
/// Writes the gains of a finger and reads them back.
QString settingPage(TourRunner& tour);

} // namespace vanto
