#pragma once

#include "tourrunner.h"

namespace vanto
{

/// The steps of the tour in their order.
std::span<const Step> tourSteps();
/// The options for the simulated hands: one with the chosen protocol, which the steps use, one with
/// the other protocol, and one with both.
QStringList tourHandOptions(bool modbus);

} // namespace vanto
