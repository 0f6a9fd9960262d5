#pragma once

#include <QString>

#include <cstdint>

namespace vanto
{

/// Numbers as fields show and take them, in the C locale; of a typed number the decimal sign may
/// also be a comma. Every text can be typed; what is not a number, or is one beyond 32 bits, counts
/// as 0.
namespace NumberText
{
/// The low 16 bits of the number in the text.
std::uint16_t toWord(const QString& text);
/// The low 8 bits of the number in the text.
std::uint8_t toByte(const QString& text);
/// Degrees to hundredths of a degree, cut to the range of 16 bits.
std::int16_t toAngle(const QString& text);

/// A finite number; what is none counts as 0.
float toReal(const QString& text);

/// "%.2f"
QString fromReal(double value);
/// Hundredths of a degree as degrees with two decimals.
QString fromAngle(std::int16_t hundredths);
} // namespace NumberText

} // namespace vanto
