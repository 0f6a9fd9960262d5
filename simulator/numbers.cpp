#include "numbers.h"

namespace vanto::simulator
{
namespace
{
std::optional<std::int64_t> parse(const QString& text, int base, std::int64_t min, std::int64_t max)
{
    bool isNumber = false;
    const std::int64_t value = text.toLongLong(&isNumber, base);
    if (!isNumber || value < min || value > max)
        return std::nullopt;
    return value;
}

bool hasHexPrefix(const QString& text)
{
    return text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
}
} // namespace

std::optional<std::int64_t> parseInteger(const QString& text, std::int64_t min, std::int64_t max)
{
    constexpr int decimal = 10;
    return hasHexPrefix(text) ? parseHex(text, min, max) : parse(text, decimal, min, max);
}

std::optional<std::int64_t> parseHex(const QString& text, std::int64_t min, std::int64_t max)
{
    constexpr int hexadecimal = 16;
    return parse(text, hexadecimal, min, max);
}

} // namespace vanto::simulator
