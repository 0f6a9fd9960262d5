#pragma once

#include "command.h"

namespace vanto
{

/// ports, scan
std::vector<Command> portCommands();

} // namespace vanto
