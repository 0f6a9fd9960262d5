#pragma once

class QString;

namespace vanto
{

/// Texts in another language than English.
namespace Translation
{
/// Installs the program's catalogue for a locale, such as "de_AT", and Qt's own beside it. Must
/// come before the window is built. False, and nothing is installed, when the program has none.
bool install(const QString& locale);
} // namespace Translation

} // namespace vanto
