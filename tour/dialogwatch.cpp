#include "dialogwatch.h"

#include <QApplication>
#include <QDialog>

#include <utility>

namespace
{
constexpr int LookMs = 20;
}

DialogWatch::DialogWatch(Answer unexpected) : m_unexpected(std::move(unexpected))
{
    startTimer(LookMs);
}

void DialogWatch::timerEvent(QTimerEvent*)
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || dialog == m_seen || !dialog->isVisible())
        return;
    m_seen = dialog;
    if (!m_answers.empty()) {
        const Answer answer = std::move(m_answers.front());
        m_answers.pop_front();
        answer(*dialog);
        return;
    }
    m_unexpected(*dialog);
    dialog->reject();
}
