#pragma once

#include "devicesession.h"
#include "handtask.h"

#include <memory>

namespace vanto
{

/// Performs the steps of a task while the session's line is idle: waiting requests come first.
/// Exists in one thread with a running event loop.
class HandTaskRunner : public QObject
{
    Q_OBJECT
public:
    HandTaskRunner(const DeviceSession* session, std::shared_ptr<HandTask> task,
                   QObject* parent = nullptr);
    /// Cancels; the step in progress, if any, still ends.
    ~HandTaskRunner() override;

    /// The first step follows from the event loop.
    void start();
    /// Ends after the present step; sig_finished() follows.
    void cancel();
    const HandTask& task() const { return *m_task; }

signals:
    void sig_progress(int done, int total);
    /// Emitted once, outside of the task's steps; the outcome says how it ended.
    void sig_finished();

private:
    void tick();

    const DeviceSession* m_session;
    std::shared_ptr<HandTask> m_task;
    QTimer m_timer{this};
    bool m_finished = false;
};

} // namespace vanto
