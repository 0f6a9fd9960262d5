#pragma once

#include "currentlimits.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace vanto
{

/// A horizontal line in the plot of the currents.
struct LimitLine {
    int value; ///< mA
    QString text;
    std::optional<std::size_t> finger; ///< whose color the line has, if it belongs to one only
};

/// The current limits of the shown fingers, one line for each value, and the limit of the player.
std::vector<LimitLine> limitLines(const FingerLimits& limits,
                                  const std::function<bool(std::size_t finger)>& isShown);

} // namespace vanto
