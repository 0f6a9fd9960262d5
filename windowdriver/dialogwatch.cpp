#include "dialogwatch.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

#include <utility>

namespace vanto
{

namespace
{
constexpr int LookMs = 5;
constexpr int AcceptMs = 20;
} // namespace

DialogWatch::DialogWatch(Answer answer) : m_answer(std::move(answer))
{
    startTimer(LookMs);
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
    // Typed, because QFileDialog::selectFile() has no effect while the folder is being read. Until
    // then the dialog may also refuse to be accepted.
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
    QTimer::singleShot(AcceptMs, &dialog, [&dialog, name] {
        dialog.accept();
        if (dialog.isVisible())
            chooseFile(dialog, name);
    });
}

} // namespace vanto
