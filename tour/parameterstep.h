#pragma once

#include "tourrunner.h"

namespace vanto
{

/// Saves the parameters of hand 5, restores them after they have changed, and shows its
/// information.
QString parameterFiles(TourRunner& tour);

} // namespace vanto
