#include "theme.h"

#include "program.h"

#include <QApplication>
#include <QDebug>
#include <QFile>
#include <QInputDialog>
#include <QSettings>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr QLatin1String StyleKey("style");
constexpr QLatin1String Default("dark");

QSettings openSettings()
{
    return QSettings(QStringLiteral("setting.ini"), QSettings::IniFormat);
}

void apply(const QString& name)
{
    QFile sheet(QStringLiteral(":qdarkstyle/%1/%1style.qss").arg(name));
    if (!sheet.exists() || !sheet.open(QFile::ReadOnly | QFile::Text)) {
        std::fputs("Unable to set stylesheet, file not found\n", stdout);
        std::fflush(stdout);
        return;
    }
    qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}
} // namespace

QStringList Theme::names()
{
    return {Default, QStringLiteral("light")};
}

void Theme::applyStored()
{
    auto settings = openSettings();
    if (!settings.contains(StyleKey)) {
        qDebug() << "style not set, use default";
        settings.setValue(StyleKey, QString(Default));
    }
    apply(settings.value(StyleKey).toString());
}

void Theme::choose(QWidget* parent)
{
    auto settings = openSettings();
    if (!settings.contains(StyleKey))
        settings.setValue(StyleKey, QString(Default));
    const auto position = names().indexOf(settings.value(StyleKey).toString());
    bool accepted = false;
    const QString name = QInputDialog::getItem(
        parent, Program::title(), QCoreApplication::translate("Theme", "Please select style:"),
        names(), qMax(0, static_cast<int>(position)), false, &accepted);
    if (!accepted)
        return;
    settings.setValue(StyleKey, name);
    apply(name);
}

} // namespace vanto
