#pragma once

#include "bus.h"

#include <variant>

namespace vanto::simulator
{

struct Options {
    struct NodeOption {
        quint8 id;
        Protocols protocols;
    };
    std::vector<NodeOption> nodes;
    HandTraits traits;
    BootOptions boot;
    QString linkPath;
    QString tracePath;
    quint32 baud = 0;           // 0: without delay
    bool outlivesInput = false; // serves on after the end of standard input
};

struct OptionError {
    QString reason;
};

// What to print instead of serving: the help or the version.
struct OptionText {
    QString text;
};

std::variant<Options, OptionError, OptionText> parseOptions(const QStringList& arguments);

} // namespace vanto::simulator
