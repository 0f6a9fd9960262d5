#pragma once

#include <QByteArray>
#include <QString>
#include <QWidget>

#include <functional>

namespace vanto
{

/// Saves what a modeless dialog shows in a file that the user chooses. Its dialogs are modeless,
/// too: Stop remains available, and no dialog has to wait for an exchange with a hand.
namespace FileSaver
{
struct Request {
    QString caption; ///< of the file dialog
    QString filter;  ///< its suffix is added to names without one
    QString name;    ///< suggested
    QString failure; ///< text for a file '%1' that cannot be written
    /// The bytes, taken when the file has been chosen.
    std::function<QByteArray(const QString& path)> content;
};

/// Asks for a file and for replacing one that exists, and saves. All dialogs belong to `parent`.
void save(QWidget* parent, const Request& request);

/// Raises the open dialog of a type, if there is one.
template<class Dialog>
bool raiseOpen(const QWidget* parent)
{
    auto* open = parent->findChild<Dialog*>();
    if (!open)
        return false;
    open->raise();
    open->activateWindow();
    return true;
}
} // namespace FileSaver

} // namespace vanto
