#pragma once

#include <QString>

#include <optional>

namespace vanto::simulator
{

// Decimal, or hexadecimal after 0x; nothing if it is no number or out of range.
std::optional<qint64> parseInteger(const QString& text, qint64 min, qint64 max);
std::optional<qint64> parseHex(const QString& text, qint64 min, qint64 max);

} // namespace vanto::simulator
