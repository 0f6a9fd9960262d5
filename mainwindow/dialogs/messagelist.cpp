#include "messagelist.h"

#include "messagelog.h"
#include "modeless.h"
#include "parameterfile.h"
#include "program.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCursor>
#include <QVBoxLayout>

#include <algorithm>

namespace vanto
{

void MessageList::showLog(const MessageLog* log, QWidget* window)
{
    if (!Modeless::raiseOpen<MessageList>(window))
        (new MessageList(log, window))->show();
}

MessageList::MessageList(const MessageLog* log, QWidget* window)
    : QDialog(window), m_log(log), m_list(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("messageList"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(Program::title() + QStringLiteral(" - ") + tr("Messages"));
    m_list->setReadOnly(true);
    m_list->setMaximumBlockCount(MessageLog::Capacity);
    m_list->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_list->setAccessibleName(tr("Messages"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* copy = buttons->addButton(tr("Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("pushButton_MessagesCopy"));
    auto* save = buttons->addButton(tr("Save..."), QDialogButtonBox::ActionRole);
    save->setObjectName(QStringLiteral("pushButton_MessagesSave"));
    connect(copy, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(m_list->toPlainText()); });
    connect(save, &QPushButton::clicked, this, &MessageList::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    // Appending keeps the selection and the scroll position.
    connect(log, &MessageLog::sig_added, m_list, &QPlainTextEdit::appendPlainText);
    connect(log, &MessageLog::sig_repeated, this, &MessageList::replaceLine);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    m_list->setPlainText(log->lines().join(QLatin1Char('\n')));
    m_list->moveCursor(QTextCursor::End);
    m_list->moveCursor(QTextCursor::StartOfBlock);
    resize(window->size() * 4 / 5);
}

/// Replaces only what differs, at the end of the line, so that a selection in the rest of it stays.
void MessageList::replaceLine(int index, const QString& line)
{
    const QTextBlock block = m_list->document()->findBlockByNumber(index);
    const QString old = block.text();
    const auto difference = std::mismatch(old.cbegin(), old.cend(), line.cbegin(), line.cend());
    const auto same = static_cast<int>(difference.first - old.cbegin());
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::MoveAnchor, same);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(line.sliced(same));
}

void MessageList::save()
{
    const Modeless::FileChoice choice{
        tr("Save messages"), {tr("Text files (*.txt)")}, QStringLiteral("messages.txt")};
    Modeless::saveFile(this, choice, [this](const QString& path) {
        const QString failure =
            ParameterFile::writeBytes(path, m_log->lines().join(QLatin1Char('\n')).toUtf8() + '\n');
        if (!failure.isEmpty())
            Modeless::showBox(this, QMessageBox::Critical,
                              tr("The messages could not be saved in '%1'.").arg(path), failure);
    });
}

} // namespace vanto
