#include "dialogwatch.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

#include <utility>

namespace vanto
{

namespace
{
constexpr int CheckIntervalMs = 5;
constexpr int AcceptDelayMs = 20;
} // namespace

DialogWatch::DialogWatch(Answer answer) : m_answer(std::move(answer))
{
    startTimer(CheckIntervalMs);
}

void DialogWatch::timerEvent(QTimerEvent*)
{
    m_answered.removeIf([](const auto& known) { return !known || !known->isVisible(); });
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible() || m_answered.contains(dialog))
        return;
    m_answered.append(dialog);
    m_answer(*dialog);
}

void chooseFile(QDialog& dialog, const QString& name)
{
    // Sets the text, because QFileDialog::selectFile() has no effect while the folder is being
    // read. During that time the dialog can also ignore accept(). A name that was proposed can
    // replace the text when the folder has been read. A file of this name in the folder of an
    // earlier dialog can be selected, too; the dialog would then close without a choice.
    QTimer::singleShot(AcceptDelayMs, &dialog, [&dialog, name] {
        auto* const list = dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
        list->clearSelection();
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        if (list->selectionModel()->selectedRows().size() <= 1)
            dialog.accept();
        if (dialog.isVisible())
            chooseFile(dialog, name);
    });
}

} // namespace vanto
