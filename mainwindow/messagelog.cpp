#include "messagelog.h"

#include "program.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr QLatin1String ListName("messageList");
} // namespace

void MessageLog::add(const QString& text, bool isError)
{
    if (std::ssize(m_messages) == Capacity)
        m_messages.pop_front();
    m_messages.push_back({QTime::currentTime(), text, isError});
    emit sig_added(lineOf(m_messages.back()));
}

QString MessageLog::lineOf(const Message& message)
{
    return message.time.toString(QStringLiteral("HH:mm:ss.zzz")) +
           QLatin1String(message.isError ? " ! " : "   ") + message.text;
}

void MessageLog::show(QWidget* window)
{
    if (auto* open = window->findChild<QDialog*>(ListName)) {
        open->raise();
        open->activateWindow();
        return;
    }
    auto* dialog = new QDialog(window);
    dialog->setObjectName(ListName);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(Program::title() + QStringLiteral(" - ") + tr("Messages"));
    auto* list = new QPlainTextEdit(dialog);
    list->setReadOnly(true);
    list->setMaximumBlockCount(Capacity);
    list->setLineWrapMode(QPlainTextEdit::NoWrap);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setAccessibleName(tr("Messages"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    auto* copy = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, list,
            [list] { QApplication::clipboard()->setText(list->toPlainText()); });
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    // Appended, so that what somebody has selected or reads further up stays where it is.
    connect(this, &MessageLog::sig_added, list, &QPlainTextEdit::appendPlainText);
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    for (const Message& message : m_messages)
        list->appendPlainText(lineOf(message));
    dialog->resize(window->size() * 2 / 3);
    dialog->show();
}
