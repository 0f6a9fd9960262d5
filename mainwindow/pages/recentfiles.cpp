#include "recentfiles.h"

#include "settingsfile.h"
#include "statefile.h"

#include <QDir>
#include <QSettings>

namespace vanto
{

RecentFiles::RecentFiles(const QString& title, const QString& key, QWidget* parent)
    : QMenu(title, parent), m_key(key)
{
    // Not before: another window may add files, too.
    connect(this, &QMenu::aboutToShow, this, &RecentFiles::showFiles);
}

QStringList RecentFiles::files() const
{
    if (!canBeSettingsFile(stateFilePath()))
        return {};
    return QSettings(stateFilePath(), QSettings::IniFormat).value(m_key).toStringList();
}

void RecentFiles::add(const QString& file)
{
    if (!canBeSettingsFile(stateFilePath()))
        return;
    QStringList all = files();
    all.removeAll(file);
    all.prepend(file);
    QSettings(stateFilePath(), QSettings::IniFormat).setValue(m_key, all.mid(0, MaxFiles));
}

void RecentFiles::showFiles()
{
    clear();
    const QStringList all = files().mid(0, MaxFiles);
    for (const QString& file : all) {
        QString text = QDir::toNativeSeparators(file);
        QAction* action = addAction(text.replace(QLatin1Char('&'), QLatin1String("&&")));
        connect(action, &QAction::triggered, this, [this, file] { emit sig_chosen(file); });
    }
    if (all.isEmpty())
        addAction(tr("No files"))->setEnabled(false);
}

} // namespace vanto
