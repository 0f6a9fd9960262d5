#pragma once

#include "command.h"

namespace vanto
{

/// What the arguments of the program ask for.
struct Invocation {
    GeneralOptions options;
    const Command* command = nullptr; ///< null: `text` is all there is to do
    Arguments arguments;
    QString text;  ///< help or version, for standard output
    QString error; ///< wrong usage, one line
};

Invocation parseCommandLine(int argc, const char* const* argv);

/// One option of all commands, for the help, the completion and the manual page.
struct GeneralOption {
    const char* name;
    const char* value;    ///< null: a flag
    const char* variable; ///< environment variable; null: none
    const char* help;
};
const std::vector<GeneralOption>& generalOptions();

} // namespace vanto
