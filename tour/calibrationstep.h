#pragma once

#include "stage.h"

namespace vanto
{

/// Walks through the calibration of the hand at node 5 and looks at what it has stored.
QString calibration(Stage& stage);

} // namespace vanto
