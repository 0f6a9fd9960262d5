#pragma once

#include "command.h"

namespace vanto
{

/// get, set
std::vector<Command> parameterCommands();

} // namespace vanto
