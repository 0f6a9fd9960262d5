#include "theme.h"

#include "program.h"
#include "settingsfile.h"

#include <QApplication>
#include <QDebug>
#include <QFile>
#include <QInputDialog>
#include <QSettings>
#include <QWidget>

#include <cstdio>
#include <optional>
#include <utility>

namespace vanto
{

namespace
{
constexpr QLatin1String StyleKey("style");
constexpr QLatin1String Default("dark");

const QString SettingsFile = QStringLiteral("setting.ini");

std::optional<QString> storedName()
{
    if (!canBeSettingsFile(SettingsFile))
        return {};
    const QSettings settings(SettingsFile, QSettings::IniFormat);
    if (!settings.contains(StyleKey))
        return {};
    return settings.value(StyleKey).toString();
}

void store(const QString& name)
{
    if (canBeSettingsFile(SettingsFile))
        QSettings(SettingsFile, QSettings::IniFormat).setValue(StyleKey, name);
}

void apply(const QString& name)
{
    QFile sheet(QStringLiteral(":qdarkstyle/%1/%1style.qss").arg(name));
    if (!sheet.exists() || !sheet.open(QFile::ReadOnly | QFile::Text)) {
        std::fputs("Unable to set stylesheet, file not found\n", stdout);
        std::fflush(stdout);
        return;
    }
    const QString text = QString::fromUtf8(sheet.readAll());
    if (text == qApp->styleSheet())
        return; // every widget would be polished again
    // A plot that gets its colors paints at once, and with it the whole window: a half changed one,
    // several times.
    QWidgetList paused;
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->updatesEnabled())
            paused.append(window);
    for (QWidget* const window : std::as_const(paused))
        window->setUpdatesEnabled(false);
    qApp->setStyleSheet(text);
    for (QWidget* const window : std::as_const(paused))
        window->setUpdatesEnabled(true);
}
} // namespace

QStringList Theme::names()
{
    return {Default, QStringLiteral("light")};
}

void Theme::applyStored()
{
    const auto stored = storedName();
    if (!stored) {
        qDebug() << "style not set, use default";
        store(Default);
    }
    apply(stored.value_or(Default));
}

void Theme::choose(QWidget* parent)
{
    const auto stored = storedName();
    if (!stored)
        store(Default);
    const auto position = names().indexOf(stored.value_or(Default));
    bool accepted = false;
    const QString name = QInputDialog::getItem(
        parent, Program::title(), QCoreApplication::translate("Theme", "Please select style:"),
        names(), qMax(0, static_cast<int>(position)), false, &accepted);
    if (!accepted)
        return;
    store(name);
    apply(name);
}

} // namespace vanto
