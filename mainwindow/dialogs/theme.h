#pragma once

#include <QStringList>

class QWidget;

namespace vanto
{

/// The color theme: a style sheet in the resources. Its name is stored in setting.ini in the
/// working directory.
namespace Theme
{
/// The names of the themes, the default first.
QStringList names();
/// Applies the stored theme. If none is stored, stores the default first.
void applyStored();
/// Lets the user choose a theme, stores it and applies it.
void choose(QWidget* parent);
} // namespace Theme

} // namespace vanto
