#include "messagelog.h"

#include "program.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

namespace
{
constexpr QLatin1String ListName("messageList");

/// Keeps the place of somebody who reads further up.
void fill(QPlainTextEdit* list, const QStringList& lines)
{
    QScrollBar* bar = list->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    const int place = bar->value();
    list->setPlainText(lines.join(QLatin1Char('\n')));
    bar->setValue(atEnd ? bar->maximum() : place);
}
} // namespace

void MessageLog::add(const QString& text, bool isError)
{
    if (m_messages.size() == Capacity)
        m_messages.pop_front();
    m_messages.push_back({QTime::currentTime(), text, isError});
    emit sig_changed();
}

QStringList MessageLog::lines() const
{
    QStringList lines;
    for (const Message& message : m_messages)
        lines.append(message.time.toString(QStringLiteral("HH:mm:ss.zzz")) +
                     QLatin1String(message.isError ? " ! " : "   ") + message.text);
    return lines;
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
    list->setLineWrapMode(QPlainTextEdit::NoWrap);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setAccessibleName(tr("Messages"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, dialog);
    auto* copy = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    connect(copy, &QPushButton::clicked, list,
            [list] { QApplication::clipboard()->setText(list->toPlainText()); });
    connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    connect(this, &MessageLog::sig_changed, list, [this, list] { fill(list, lines()); });
    auto* layout = new QVBoxLayout(dialog);
    layout->addWidget(list);
    layout->addWidget(buttons);
    fill(list, lines());
    dialog->resize(window->size() * 2 / 3);
    dialog->show();
}
