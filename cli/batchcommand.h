#pragma once

#include "command.h"

namespace vanto
{

/// batch: commands line by line over one open port
std::vector<Command> batchCommands();

} // namespace vanto
