#pragma once

#include "command.h"

namespace vanto
{

/// beep, reset, init, set-id
std::vector<Command> basicCommands();

} // namespace vanto
