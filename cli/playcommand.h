#pragma once

#include "command.h"

namespace vanto
{

/// play
std::vector<Command> playCommands();

} // namespace vanto
