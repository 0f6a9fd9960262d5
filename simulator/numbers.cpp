#include "numbers.h"

namespace vanto::simulator
{
namespace
{
std::optional<qint64> parse(const QString& text, int base, qint64 min, qint64 max)
{
    bool isNumber = false;
    const qint64 value = text.toLongLong(&isNumber, base);
    if (!isNumber || value < min || value > max)
        return std::nullopt;
    return value;
}

bool hasHexPrefix(const QString& text)
{
    return text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
}
} // namespace

std::optional<qint64> parseInteger(const QString& text, qint64 min, qint64 max)
{
    constexpr int decimal = 10;
    return hasHexPrefix(text) ? parseHex(text, min, max) : parse(text, decimal, min, max);
}

std::optional<qint64> parseHex(const QString& text, qint64 min, qint64 max)
{
    constexpr int hexadecimal = 16;
    return parse(text, hexadecimal, min, max);
}

} // namespace vanto::simulator
