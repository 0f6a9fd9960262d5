#pragma once

class QString;

namespace vanto
{

/// Translations of the user interface.
namespace Translation
{
/// Installs the program's translations for a locale, such as "de_AT", and those of Qt. Call this
/// before the window is created. Returns false, and installs nothing, if the program has none.
bool install(const QString& locale);
} // namespace Translation

} // namespace vanto
