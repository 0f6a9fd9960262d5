#pragma once

#include "stage.h"

/// Walks through the calibration of the hand at node 5 and looks at what it has stored.
QString calibration(Stage& stage);
