#include "requestqueue.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <array>

namespace vanto
{

namespace
{
using Kind = RequestQueue::Kind;

/// Changes of the connection run in this order, so that a scan follows those that would discard its
/// result.
constexpr std::array ConnectionChanges{Kind::RefreshPorts, Kind::ChangePort, Kind::ChangeDevice,
                                       Kind::Update, Kind::Scan};

/// The index in that order; the number of entries for all other jobs.
std::ptrdiff_t changeIndex(std::optional<Kind> kind)
{
    const auto* const found = std::find(ConnectionChanges.begin(), ConnectionChanges.end(), kind);
    return found - ConnectionChanges.begin();
}

bool changesConnection(std::optional<Kind> kind)
{
    return changeIndex(kind) < std::ssize(ConnectionChanges);
}
} // namespace

RequestQueue::RequestQueue(QObject* parent) : QObject(parent)
{
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this,
            &RequestQueue::scheduleDrain);
}

void RequestQueue::request(const HandTarget& target, std::function<bool()> isStillWanted,
                           Request action)
{
    submit({.kind = {},
            .target = target,
            .isStillWanted = std::move(isStillWanted),
            .action = [target, action = std::move(action)] { action(target); }});
}

void RequestQueue::runWhenIdle(Kind kind, std::function<void()> action)
{
    submit({.kind = kind, .target = {}, .isStillWanted = {}, .action = std::move(action)});
}

void RequestQueue::dropRequests()
{
    m_waiting.remove_if([](const Job& waiting) { return waiting.target.has_value(); });
}

void RequestQueue::openWaitingDialogs()
{
    if (Conversation::isActive() || m_held)
        return;
    emit ConversationMonitor::instance().sig_pause();
    for (const Kind kind : {Kind::About, Kind::Theme}) {
        const auto waiting = std::find_if(m_waiting.begin(), m_waiting.end(),
                                          [kind](const Job& job) { return job.kind == kind; });
        if (waiting == m_waiting.end())
            continue;
        const Job job = std::move(*waiting);
        m_waiting.erase(waiting);
        run(job);
    }
}

void RequestQueue::hold(bool held)
{
    m_held = held;
    if (!held)
        scheduleDrain();
}

void RequestQueue::shutDown()
{
    m_shutDown = true;
    m_waiting.clear();
}

bool RequestQueue::canTick() const
{
    return !m_shutDown && !Conversation::isActive() && !hasWaitingJobs();
}

bool RequestQueue::isIdle() const
{
    return !Conversation::isActive() && m_runningJobs == 0 && !m_held;
}

void RequestQueue::submit(Job job)
{
    if (m_shutDown)
        return;
    if (isIdle() && m_waiting.empty())
        run(job);
    else
        enqueue(std::move(job));
}

void RequestQueue::enqueue(Job job)
{
    if (changesConnection(job.kind)) {
        enqueueConnectionChange(std::move(job));
        return;
    }
    if (job.kind)
        remove(job.kind);
    m_waiting.push_back(std::move(job));
}

void RequestQueue::enqueueConnectionChange(Job job)
{
    remove(job.kind);
    // A waiting scan would close the device that the change opens.
    if (job.kind == Kind::Scan)
        remove(Kind::ChangeDevice);
    const auto isScan = [](const Job& waiting) { return waiting.kind == Kind::Scan; };
    if (job.kind == Kind::ChangeDevice && std::ranges::any_of(m_waiting, isScan))
        return;
    const auto later = std::find_if(m_waiting.begin(), m_waiting.end(), [&](const Job& waiting) {
        return changesConnection(waiting.kind) && changeIndex(waiting.kind) > changeIndex(job.kind);
    });
    m_waiting.insert(later, std::move(job));
}

void RequestQueue::remove(std::optional<Kind> kind)
{
    m_waiting.remove_if([kind](const Job& waiting) { return waiting.kind == kind; });
}

void RequestQueue::run(const Job& job)
{
    {
        const QScopedValueRollback running(m_runningJobs, m_runningJobs + 1);
        job.action();
    }
    scheduleDrain();
}

void RequestQueue::scheduleDrain()
{
    if (m_waiting.empty() || m_drainScheduled)
        return;
    m_drainScheduled = true;
    // Queued, because the conversation that has just ended is still returning from its slot.
    QMetaObject::invokeMethod(this, &RequestQueue::drain, Qt::QueuedConnection);
}

void RequestQueue::drain()
{
    m_drainScheduled = false;
    while (isIdle() && !m_waiting.empty()) {
        const Job job = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (job.target && !job.target->isCurrent())
            continue;
        if (job.isStillWanted && !job.isStillWanted())
            continue;
        run(job);
    }
}

} // namespace vanto
