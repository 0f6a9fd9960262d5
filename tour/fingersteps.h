#pragma once

#include "stage.h"

namespace vanto
{

/// Moves fingers by position and by angle and watches their currents.
QString runPage(Stage& stage);
/// Writes the gains of a finger and reads them back.
QString settingPage(Stage& stage);

} // namespace vanto
