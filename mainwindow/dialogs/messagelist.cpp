#include "messagelist.h"

#include "messagelog.h"
#include "program.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace vanto
{

namespace
{
constexpr QLatin1String ListName("messageList");
} // namespace

void MessageList::show(const MessageLog* log, QWidget* window)
{
    if (auto* open = window->findChild<QDialog*>(ListName)) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto* dialog = new QDialog(window);
    dialog->setObjectName(ListName);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(Program::title() + QStringLiteral(" - ") +
                           QCoreApplication::translate("MessageList", "Messages"));
    auto* list = new QPlainTextEdit(dialog);
    list->setReadOnly(true);
    list->setMaximumBlockCount(MessageLog::Capacity);
    list->setLineWrapMode(QPlainTextEdit::NoWrap);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setAccessibleName(QCoreApplication::translate("MessageList", "Messages"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    auto* copy = buttons->addButton(QCoreApplication::translate("MessageList", "Copy"),
                                    QDialogButtonBox::ActionRole);
    QObject::connect(copy, &QPushButton::clicked, list,
                     [list] { QApplication::clipboard()->setText(list->toPlainText()); });
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    // Appending keeps the selection and the scroll position.
    QObject::connect(log, &MessageLog::sig_added, list, &QPlainTextEdit::appendPlainText);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    for (const QString& line : log->lines())
        list->appendPlainText(line);
    dialog->resize(window->size() * 2 / 3);
    dialog->show();
}

} // namespace vanto
