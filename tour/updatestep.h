#pragma once

#include "stage.h"

namespace vanto
{

/// Updates the firmware of the hand at node 5 from a file, with the other hands switched off.
QString firmwareUpdate(Stage& stage);

} // namespace vanto
