#include "idletask.h"

#include "conversation.h"

namespace vanto
{

IdleTask::IdleTask(std::function<void()> work, QObject* parent, int intervalMs)
    : QObject(parent), m_work(std::move(work)), m_intervalMs(intervalMs)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &IdleTask::run);
    const auto runIfDue = [this] {
        if (m_isDue)
            run();
    };
    // Queued: this signal also starts what waits for the line, and that comes first.
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this,
            [this, runIfDue] {
                if (m_isDue)
                    QMetaObject::invokeMethod(this, runIfDue, Qt::QueuedConnection);
            });
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_pause, this, [this] {
        if (m_isDue)
            runNow();
    });
}

void IdleTask::run()
{
    m_timer.stop();
    m_isDue = Conversation::isActive();
    if (!m_isDue)
        runNow();
}

void IdleTask::runNow()
{
    m_isDue = false;
    m_work();
    m_sinceWork.start();
}

void IdleTask::request()
{
    if (m_isDue || m_timer.isActive())
        return;
    const qint64 left = m_sinceWork.isValid() ? m_intervalMs - m_sinceWork.elapsed() : 0;
    if (left > 0)
        m_timer.start(static_cast<int>(left));
    else
        run();
}

void IdleTask::once(QObject* context, const std::function<void()>& work)
{
    auto* const task = new IdleTask({}, context);
    task->m_work = [task, work] {
        task->deleteLater();
        work();
    };
    task->run();
}

} // namespace vanto
