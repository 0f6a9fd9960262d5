#pragma once

#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>

class QDialog;

/// Answers the modal dialogs that the window opens. Its timer goes on in the dialogs' own event
/// loops, so a dialog that nobody expects does not hold up the tour.
class DialogWatch : public QObject
{
public:
    using Answer = std::function<void(QDialog&)>;

    /// `unexpected` is told of every dialog that is rejected because no answer was given for it.
    explicit DialogWatch(Answer unexpected);

    /// Answers the next dialogs, one each, by accepting or rejecting them.
    void answerNext(std::deque<Answer> answers) { m_answers = std::move(answers); }
    /// How many of the given answers still wait for their dialog.
    std::size_t waiting() const { return m_answers.size(); }
    void forget() { m_answers.clear(); }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    Answer m_unexpected;
    std::deque<Answer> m_answers;
    QPointer<QDialog> m_seen;
};
