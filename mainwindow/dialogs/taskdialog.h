#pragma once

#include "handtaskrunner.h"

#include <QDialog>

class QLabel;
class QProgressBar;

namespace vanto
{

class HaltControl;

/// Shows the progress of tasks, one after the other, with Cancel and Halt.
class TaskDialog : public QDialog
{
    Q_OBJECT
public:
    using Tasks = QList<std::shared_ptr<HandTask>>;

    TaskDialog(QWidget* window, const DeviceSession* session, HaltControl* halt,
               const QString& label);

    /// Performs the tasks and returns whether all have been completed. Shows why one has failed,
    /// unless the window has already a message for it. Must not be called in a conversation.
    bool run(const Tasks& tasks);

    void reject() override;

private:
    void startNext();
    void finishTask();

    const DeviceSession* m_session;
    QProgressBar* m_progress;
    Tasks m_tasks;
    std::unique_ptr<HandTaskRunner> m_runner;
    qsizetype m_current = 0;
};

} // namespace vanto
