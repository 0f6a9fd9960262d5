#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QDialog;

namespace vanto
{

/// Answers each modal dialog of the window as soon as it is shown. The timer also runs in the event
/// loops of the dialogs.
class DialogWatch : public QObject
{
public:
    using Answer = std::function<void(QDialog&)>;

    explicit DialogWatch(Answer answer);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    Answer m_answer;
    QList<QPointer<QDialog>> m_answered;
};

/// Enters a file name in a file dialog and accepts the dialog after the caller has returned.
void chooseFile(QDialog& dialog, const QString& name);

} // namespace vanto
