#pragma once

#include "bus.h"

#include <cstdint>
#include <variant>

namespace vanto::simulator
{

struct Options {
    struct NodeOption {
        std::uint8_t id;
        Protocols protocols;
    };
    std::vector<NodeOption> nodes;
    HandTraits traits;
    BootOptions boot;
    QString linkPath;
    QString tracePath;
    std::uint32_t baud = 0;    ///< 0: no limit
    bool collides = false;     ///< replies of several hands to one request
    bool keepsRunning = false; ///< after the end of standard input
};

struct OptionError {
    QString reason;
};

/// The help or version text, to be printed instead of starting the simulation.
struct OptionText {
    QString text;
};

std::variant<Options, OptionError, OptionText> parseOptions(const QStringList& arguments);

} // namespace vanto::simulator
