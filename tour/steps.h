#pragma once

#include "stage.h"

namespace vanto
{

/// The tour's steps in their order.
std::span<const Step> tourSteps();
/// The options with which the simulated hands are started for them: one of the chosen protocol,
/// with which the steps work, one of the other, and one that speaks both.
QStringList tourHandOptions(bool modbus);

} // namespace vanto
