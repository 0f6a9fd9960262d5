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
    QStringList nameFilters; ///< like "Text files (*.txt)"
    QString suffix;          ///< added to a name without one
    QString proposal;        ///< file name
};
/// Asks before a file is replaced.
void saveFile(QWidget* parent, const FileChoice& choice, std::function<void(const QString&)> save);
void openFile(QWidget* parent, const FileChoice& choice, std::function<void(const QString&)> open);
} // namespace Modeless

} // namespace vanto
