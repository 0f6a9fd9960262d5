#pragma once

#include "command.h"

namespace vanto
{

/// monitor
std::vector<Command> monitorCommands();

} // namespace vanto
