#pragma once

#include "command.h"

namespace vanto
{

/// info, report
std::vector<Command> infoCommands();

} // namespace vanto
