#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>

namespace vanto
{

/// Work that takes long, as painting does. An exchange with a hand processes events while it waits,
/// and work in one of them would delay the reply beyond its time-out. Such work therefore waits for
/// the end of the conversation, or for a pause of what holds the line for long; several requests of
/// it become one.
class IdleTask : public QObject
{
    Q_OBJECT
public:
    /// `intervalMs` is the least time between two runs of request().
    IdleTask(std::function<void()> work, QObject* parent, int intervalMs = 0);

    /// Works at once if the line is idle, and otherwise as soon as it is.
    void run();
    /// As run(), but not earlier than the interval allows; for events that come in quick
    /// succession.
    void request();
    /// Runs work that is not repeated, unless `context` is deleted before.
    static void once(QObject* context, const std::function<void()>& work);

private:
    void runNow();

    std::function<void()> m_work;
    int m_intervalMs;
    bool m_isDue = false; ///< when the line is idle
    QTimer m_timer;       ///< runs while a request waits for the interval
    QElapsedTimer m_sinceWork;
};

} // namespace vanto
