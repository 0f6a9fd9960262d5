#include "handtaskrunner.h"

#include <QPointer>

namespace vanto
{

namespace
{
constexpr int BusyCheckMs = 5; ///< interval of the checks for an idle line
}

HandTaskRunner::HandTaskRunner(const DeviceSession* session, std::shared_ptr<HandTask> task,
                               QObject* parent)
    : QObject(parent), m_session(session), m_task(std::move(task))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &HandTaskRunner::tick);
}

HandTaskRunner::~HandTaskRunner()
{
    m_task->cancel();
}

void HandTaskRunner::start()
{
    m_timer.start(0);
}

void HandTaskRunner::cancel()
{
    m_task->cancel();
    if (!m_task->isInStep())
        m_timer.start(0);
}

void HandTaskRunner::tick()
{
    if (m_finished)
        return;
    // A stale target ends the task without an exchange.
    if (m_task->isRunning() && m_task->target().isCurrent() && !m_session->canTick()) {
        m_timer.start(BusyCheckMs);
        return;
    }
    const std::shared_ptr<HandTask> task = m_task;
    const QPointer<HandTaskRunner> self(this);
    task->step();
    if (!self)
        return;
    if (task->isInStep()) // a nested event loop inside the step
        return;
    if (task->isRunning()) {
        m_timer.start(0);
        emit sig_progress(task->stepsDone(), task->stepCount());
        return;
    }
    m_finished = true;
    m_timer.stop();
    emit sig_progress(task->stepsDone(), task->stepCount());
    if (self)
        emit sig_finished();
}

} // namespace vanto
