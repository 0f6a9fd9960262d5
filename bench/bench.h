#pragma once

#include "handprocess.h"
#include "windowdriver.h"

namespace vanto
{

/// A simulated hand started with the given options.
struct BenchHand : HandProcess {
    explicit BenchHand(const QStringList& options)
    {
        if (!start(options))
            qFatal("%s", qPrintable(errorText()));
    }
};

/// The real window with an open hand.
struct Bench {
    explicit Bench(const QStringList& options = {})
        : hand(QStringList{QStringLiteral("--node"), QStringLiteral("1")} + options)
    {
        tool.openHand(hand.portName());
    }

    BenchHand hand;
    WindowDriver tool{{hand.portName()}};
};

} // namespace vanto
