#pragma once

#include "stage.h"

/// Updates the firmware of the hand at node 5 from a file, with the other hands switched off.
QString firmwareUpdate(Stage& stage);
