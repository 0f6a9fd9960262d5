#pragma once

#include "stage.h"

namespace vanto
{

/// Loads an example, goes to one of its steps, plays from there and saves what it has loaded.
QString sequencePage(Stage& stage);

} // namespace vanto
