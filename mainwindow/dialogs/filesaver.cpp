#include "filesaver.h"

#include "parameterfile.h"
#include "program.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

namespace vanto
{

namespace
{
QMessageBox* showModelessBox(QWidget* parent, QMessageBox::Icon icon, const QString& text,
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

void write(QWidget* parent, const FileSaver::Request& request, const QString& path)
{
    const QString error = ParameterFile::writeBytes(path, request.content(path));
    if (!error.isEmpty())
        showModelessBox(parent, QMessageBox::Critical, request.failure.arg(path), error,
                        QMessageBox::Ok);
}

void confirm(QWidget* parent, const FileSaver::Request& request, const QString& path)
{
    if (!QFile::exists(path)) {
        write(parent, request, path);
        return;
    }
    const auto text = [](const char* source) {
        return QCoreApplication::translate("MessageList", source);
    };
    auto* question =
        showModelessBox(parent, QMessageBox::Question,
                        text(QT_TRANSLATE_NOOP("MessageList", "'%1' already exists.")).arg(path),
                        text(QT_TRANSLATE_NOOP("MessageList", "Do you want to replace it?")),
                        QMessageBox::Yes | QMessageBox::No);
    QObject::connect(question, &QDialog::accepted, parent,
                     [parent, request, path] { write(parent, request, path); });
}
} // namespace

void FileSaver::save(QWidget* parent, const Request& request)
{
    if (raiseOpen<QFileDialog>(parent))
        return;
    auto* files = new QFileDialog(parent, request.caption, {}, request.filter);
    files->setAttribute(Qt::WA_DeleteOnClose);
    files->setAcceptMode(QFileDialog::AcceptSave);
    files->setDefaultSuffix(request.name.section(QLatin1Char('.'), -1));
    QObject::connect(files, &QFileDialog::filterSelected, files, [files](const QString& filter) {
        files->setDefaultSuffix(filter.section(QStringLiteral("*."), 1).chopped(1));
    });
    // Its own question is modal.
    files->setOption(QFileDialog::DontConfirmOverwrite);
    files->selectFile(request.name);
    QObject::connect(files, &QFileDialog::fileSelected, parent,
                     [parent, request](const QString& path) { confirm(parent, request, path); });
    files->show();
}

} // namespace vanto
