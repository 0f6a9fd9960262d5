#pragma once

#include "stage.h"

/// The tour's steps in their order.
std::span<const Step> tourSteps();
/// The options with which the simulated hands are started for them.
QStringList tourHandOptions();
