#include "taskdialog.h"

#include "haltcontrol.h"
#include "program.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QVBoxLayout>

#include <numeric>

namespace vanto
{

TaskDialog::TaskDialog(QWidget* window, const DeviceSession* session, HaltControl* halt,
                       const QString& label)
    : QDialog(window), m_session(session), m_progress(new QProgressBar(this))
{
    setObjectName(QStringLiteral("taskDialog"));
    setWindowTitle(Program::title());
    m_progress->setAccessibleName(label);
    m_progress->setMinimumWidth(40 * fontMetrics().averageCharWidth());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    halt->addTo(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(label, this));
    layout->addWidget(m_progress);
    layout->addWidget(buttons);
}

bool TaskDialog::run(const Tasks& tasks)
{
    m_tasks = tasks;
    m_progress->setRange(
        0, std::accumulate(tasks.begin(), tasks.end(), 0,
                           [](int sum, const auto& task) { return sum + task->stepCount(); }));
    startNext();
    exec();
    m_runner.reset(); // the program may be about to end
    if (m_current == m_tasks.size())
        return true;
    const HandTask& last = *m_tasks[m_current];
    using Outcome = HandTask::Outcome;
    // The status bar reports a lost port and a hand that is silent for longer.
    const bool isNew = last.outcome() == Outcome::NoAnswer &&
                       m_session->state() == DeviceSession::State::Connected;
    if (isNew || last.outcome() == Outcome::OtherHand)
        QMessageBox::warning(parentWidget(), Program::title(), last.outcomeText());
    return false;
}

void TaskDialog::startNext()
{
    const int before =
        std::accumulate(m_tasks.begin(), m_tasks.begin() + m_current, 0,
                        [](int sum, const auto& task) { return sum + task->stepCount(); });
    m_runner = std::make_unique<HandTaskRunner>(m_session, m_tasks[m_current]);
    connect(m_runner.get(), &HandTaskRunner::sig_progress, m_progress,
            [this, before](int done) { m_progress->setValue(before + done); });
    // Queued, because the runner is still emitting.
    connect(m_runner.get(), &HandTaskRunner::sig_finished, this, &TaskDialog::finishTask,
            Qt::QueuedConnection);
    m_runner->start();
}

void TaskDialog::finishTask()
{
    if (m_tasks[m_current]->outcome() != HandTask::Outcome::Completed)
        done(QDialog::Rejected);
    else if (++m_current == m_tasks.size())
        done(QDialog::Accepted);
    else
        startNext();
}

/// Ends after the present step.
void TaskDialog::reject()
{
    m_runner->cancel();
}

} // namespace vanto
