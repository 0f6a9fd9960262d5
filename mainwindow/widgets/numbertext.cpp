#include "numbertext.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vanto
{

namespace
{
float parseFloat(QString text)
{
    return text.replace(QLatin1Char(','), QLatin1Char('.')).toFloat();
}
} // namespace

std::uint16_t NumberText::toWord(const QString& text)
{
    return static_cast<std::uint16_t>(text.toInt());
}

std::uint8_t NumberText::toByte(const QString& text)
{
    return static_cast<std::uint8_t>(text.toInt());
}

std::int16_t NumberText::toAngle(const QString& text)
{
    using Limits = std::numeric_limits<std::int16_t>;
    const float hundredths = parseFloat(text) * 100;
    if (std::isnan(hundredths))
        return 0;
    return static_cast<std::int16_t>(
        std::clamp(hundredths, float{Limits::min()}, float{Limits::max()}));
}

float NumberText::toFloat(const QString& text)
{
    const float number = parseFloat(text);
    return std::isfinite(number) ? number : 0;
}

QString NumberText::fromDouble(double value)
{
    return QString::number(value, 'f', 2);
}

QString NumberText::fromAngle(std::int16_t hundredths)
{
    return fromDouble(hundredths / 100.0);
}

} // namespace vanto
