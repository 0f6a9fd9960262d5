#pragma once

#include "handscan.h"

#include <QString>

namespace vanto
{

/// The hand that was opened last, kept in the user's configuration folder. It only fills in what
/// the user would choose anyway; nothing is sent because of it.
struct LastHand {
    QString port;
    int node = 1;
    std::optional<PROTOCOL_TYPE> protocol = {};

    /// An empty port if there is no such record, or if it is damaged.
    static LastHand load();
    /// The scan that looks for this hand only.
    HandScan::Range range() const { return {node, node, protocol}; }
    bool operator==(const LastHand&) const = default;
    /// Writes only what is new. Failures are ignored, as the record is a convenience.
    void save() const;
};

} // namespace vanto
