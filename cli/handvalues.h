#pragma once

#include "handcall.h"

#include <QJsonArray>
#include <QJsonValue>

#include <vector>

namespace vanto
{

/// A value of a hand that is no parameter, such as a current.
struct HandValue {
    const char* name;
    int fingers; ///< it exists for the first ones; 0: once for the hand
    /// Reads it; reports a failure and returns undefined then.
    QJsonValue (*read)(HandCall& call, std::uint8_t finger);
    /// Reads it for all fingers by one operation, likewise; null if there is none. The array is
    /// empty after a failure.
    QJsonArray (*readAll)(HandCall& call) = nullptr;
};

const std::vector<HandValue>& handValues();
/// Regardless of case, '-' and '_'.
const HandValue* findHandValue(const QString& name);

} // namespace vanto
