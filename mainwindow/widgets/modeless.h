#pragma once

#include <QMessageBox>
#include <QStringList>

#include <functional>

namespace vanto
{

/// Dialogs that are not modal and delete themselves: Stop remains available, and no dialog has to
/// wait for an exchange with a hand.
namespace Modeless
{
QMessageBox* showBox(QWidget* parent, QMessageBox::Icon icon, const QString& text,
                     const QString& details = {},
                     QMessageBox::StandardButtons buttons = QMessageBox::Ok);

/// A choice of a file. `parent` has at most one at a time.
struct FileChoice {
    QString caption;
    /// Like "Text files (*.txt)". The suffix of the chosen one is added to a name without one.
    QStringList nameFilters;
    QString proposal = {}; ///< file name
    /// Runs what follows the choice, at once or later, but not after the end of `context`.
    std::function<void(QObject* context, const std::function<void()>& next)> schedule = {};
};
/// Asks before a file is replaced.
void saveFile(QWidget* parent, const FileChoice& choice,
              const std::function<void(const QString&)>& save);
void openFile(QWidget* parent, const FileChoice& choice,
              const std::function<void(const QString&)>& open);

/// Raises the dialog of a type that is open already; returns whether there is one.
template<class Dialog>
bool raiseOpen(const QWidget* parent)
{
    auto* open = parent->findChild<Dialog*>({}, Qt::FindDirectChildrenOnly);
    if (!open)
        return false;
    open->raise();
    open->activateWindow();
    return true;
}
} // namespace Modeless

} // namespace vanto
