#pragma once

#include "command.h"

namespace vanto
{

/// update
std::vector<Command> updateCommands();

} // namespace vanto
