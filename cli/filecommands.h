#pragma once

#include "command.h"

namespace vanto
{

/// backup, restore, diff
std::vector<Command> fileCommands();

} // namespace vanto
