#pragma once

#include "command.h"

namespace vanto
{

/// calibrate
std::vector<Command> calibrateCommands();

} // namespace vanto
