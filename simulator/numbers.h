#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace vanto::simulator
{

/// Parses a decimal or 0x-prefixed hexadecimal number. Returns nullopt if it is invalid or out of
/// range.
std::optional<std::int64_t> parseInteger(const QString& text, std::int64_t min, std::int64_t max);
std::optional<std::int64_t> parseHex(const QString& text, std::int64_t min, std::int64_t max);

} // namespace vanto::simulator
