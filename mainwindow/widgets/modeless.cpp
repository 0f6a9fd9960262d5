#include "modeless.h"

#include "program.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace vanto
{

namespace
{
/// "txt" of "Text files (*.txt)"; empty if it has none.
QString suffixOf(const QString& nameFilter)
{
    QString suffix = nameFilter.section(QLatin1String("(*."), 1);
    suffix.chop(1);
    return suffix;
}

/// Gives the name the suffix of the filter, unless the user has typed another suffix.
void followFilter(QFileDialog* files, const QString& nameFilter)
{
    files->setDefaultSuffix(suffixOf(nameFilter));
    const QFileInfo chosen(files->selectedFiles().value(0));
    const QStringList filters = files->nameFilters();
    // In a folder that does not exist, the dialog would take the name for a relative one.
    if (chosen.dir().exists() &&
        std::ranges::find(filters, chosen.suffix(), suffixOf) != filters.end())
        files->selectFile(chosen.dir().filePath(chosen.completeBaseName() + QLatin1Char('.') +
                                                files->defaultSuffix()));
}

/// Calls `next` when the choice allows it.
std::function<void(const QString&)> scheduled(QWidget* parent, const Modeless::FileChoice& choice,
                                              const std::function<void(const QString&)>& next)
{
    if (!choice.schedule)
        return next;
    return [parent, schedule = choice.schedule, next](const QString& path) {
        schedule(parent, [next, path] { next(path); });
    };
}

/// Null if a dialog of the parent is open already; it is raised then.
QFileDialog* newFileDialog(QWidget* parent, const Modeless::FileChoice& choice)
{
    if (Modeless::raiseOpen<QFileDialog>(parent))
        return nullptr;
    auto* files = new QFileDialog(parent, choice.caption);
    files->setAttribute(Qt::WA_DeleteOnClose);
    files->setNameFilters(choice.nameFilters);
    files->setDefaultSuffix(suffixOf(choice.nameFilters.constFirst()));
    if (!choice.proposal.isEmpty())
        files->selectFile(choice.proposal);
    return files;
}
} // namespace

QMessageBox* Modeless::showBox(QWidget* parent, QMessageBox::Icon icon, const QString& text,
                               const QString& details, QMessageBox::StandardButtons buttons)
{
    auto* box = new QMessageBox(icon, Program::title(), text, buttons, parent);
    box->setTextFormat(Qt::PlainText); // file names may look like markup
    box->setInformativeText(details);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
    return box;
}

void Modeless::saveFile(QWidget* parent, const FileChoice& choice,
                        const std::function<void(const QString&)>& save)
{
    QFileDialog* const files = newFileDialog(parent, choice);
    if (!files)
        return;
    files->setAcceptMode(QFileDialog::AcceptSave);
    files->setOption(QFileDialog::DontConfirmOverwrite); // its own question is modal
    QObject::connect(files, &QFileDialog::filterSelected, files,
                     [files](const QString& nameFilter) { followFilter(files, nameFilter); });
    const auto confirm = [parent, save,
                          later = scheduled(parent, choice, save)](const QString& path) {
        if (!QFile::exists(path))
            return save(path);
        auto* const question = showBox(
            parent, QMessageBox::Question,
            QCoreApplication::translate("vanto::Modeless", "'%1' already exists.").arg(path),
            QCoreApplication::translate("vanto::Modeless", "Do you want to replace it?"),
            QMessageBox::Yes | QMessageBox::No);
        QObject::connect(question, &QDialog::accepted, parent, [later, path] { later(path); });
    };
    QObject::connect(files, &QFileDialog::fileSelected, parent, scheduled(parent, choice, confirm));
    files->show();
}

void Modeless::openFile(QWidget* parent, const FileChoice& choice,
                        const std::function<void(const QString&)>& open)
{
    QFileDialog* const files = newFileDialog(parent, choice);
    if (!files)
        return;
    files->setFileMode(QFileDialog::ExistingFile);
    QObject::connect(files, &QFileDialog::fileSelected, parent, scheduled(parent, choice, open));
    files->show();
}

} // namespace vanto
