#pragma once

#include "command.h"

namespace vanto
{

/// move, pose, halt, continue
std::vector<Command> motionCommands();

} // namespace vanto
