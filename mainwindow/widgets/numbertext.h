#pragma once

#include <QString>

#include <cstdint>

namespace vanto
{

/// Converts numbers to and from the text of fields, in the C locale; typed numbers may also have a
/// decimal comma. Any text is accepted: one that is not a number, or exceeds 32 bits, counts as 0.
namespace NumberText
{
/// The low 16 bits of the number in the text.
std::uint16_t toWord(const QString& text);
/// The low 8 bits of the number in the text.
std::uint8_t toByte(const QString& text);
/// Degrees to hundredths of a degree, clamped to 16 bits.
std::int16_t toAngle(const QString& text);

/// A finite number; anything else counts as 0.
float toFloat(const QString& text);

/// "%.2f"
QString fromDouble(double value);
/// Hundredths of a degree as degrees with two decimals.
QString fromAngle(std::int16_t hundredths);
} // namespace NumberText

} // namespace vanto
