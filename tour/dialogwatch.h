#pragma once

#include <QObject>
#include <QPointer>

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

    /// Answers the next dialog, by accepting or rejecting it.
    void answerNext(Answer answer) { m_answer = std::move(answer); }
    /// Whether the given answer still waits for its dialog.
    bool isWaiting() const { return static_cast<bool>(m_answer); }
    void forget() { m_answer = {}; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    Answer m_unexpected;
    Answer m_answer;
    QPointer<QDialog> m_seen;
};
