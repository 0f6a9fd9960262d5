#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QDialog;

namespace vanto
{

/// Answers the modal dialogs of the window, each as soon as it is shown. The timer goes on in the
/// event loops of the dialogs.
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

/// Types the name of a file in a file dialog and accepts it soon after the caller has returned.
void chooseFile(QDialog& dialog, const QString& name);

} // namespace vanto
