#include "devicesession.h"

#include "conversation.h"

#include <QScopedValueRollback>

#include <algorithm>

DeviceSession::DeviceSession(NodeSource currentNode, QObject* parent)
    : QObject(parent), m_currentNode(std::move(currentNode))
{
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_quiet, this,
            &DeviceSession::scheduleDrain);
}

DeviceSession::~DeviceSession()
{
    if (m_adapter)
        m_adapter->disconnect();
}

std::optional<DeviceSession::Target> DeviceSession::target() const
{
    if (!m_adapter || m_epoch != m_openEpoch)
        return {};
    const auto node = m_currentNode();
    if (!node)
        return {};
    return Target{m_adapter, *node, m_epoch};
}

void DeviceSession::setAdapter(std::shared_ptr<VantoProtocol> adapter)
{
    m_adapter = std::move(adapter);
    m_openEpoch = m_epoch;
}

void DeviceSession::close()
{
    stopAtOnce();
    m_adapter->disconnect();
    m_adapter.reset();
}

void DeviceSession::closeIfConnected()
{
    if (connected())
        close();
}

void DeviceSession::stopAtOnce()
{
    ++m_epoch;
    emit sig_stop();
}

void DeviceSession::shutDown()
{
    m_shutDown = true;
    m_waiting.clear();
    stopAtOnce();
}

void DeviceSession::ask(std::function<bool()> stillWanted, Request request)
{
    const auto asked = target();
    if (!asked)
        return;
    submit({.kind = {},
            .target = asked,
            .stillWanted = std::move(stillWanted),
            .action = [asked = *asked, request = std::move(request)] { request(asked); }});
}

void DeviceSession::whenQuiet(Change kind, std::function<void()> action)
{
    submit({.kind = kind, .target = {}, .stillWanted = {}, .action = std::move(action)});
}

void DeviceSession::dropRequests()
{
    m_waiting.remove_if([](const Job& waiting) { return waiting.target.has_value(); });
}

void DeviceSession::openWaitingDialogs()
{
    if (Conversation::busy())
        return;
    for (const Change kind : {Change::About, Change::Theme}) {
        const auto waiting = std::find_if(m_waiting.begin(), m_waiting.end(),
                                          [kind](const Job& job) { return job.kind == kind; });
        if (waiting == m_waiting.end())
            continue;
        const Job job = std::move(*waiting);
        m_waiting.erase(waiting);
        run(job);
    }
}

bool DeviceSession::tickMayRun() const
{
    return !m_shutDown && !Conversation::busy() && !requestWaits();
}

bool DeviceSession::idle() const
{
    return !Conversation::busy() && m_handling == 0;
}

void DeviceSession::submit(Job job)
{
    if (m_shutDown)
        return;
    if (idle() && m_waiting.empty()) {
        run(job);
        return;
    }
    enqueue(std::move(job));
}

void DeviceSession::enqueue(Job job)
{
    const auto remove = [this](std::optional<Change> kind) {
        m_waiting.remove_if([kind](const Job& waiting) { return waiting.kind == kind; });
    };
    if (!changesConnection(job)) {
        if (job.kind)
            remove(job.kind);
        m_waiting.push_back(std::move(job));
        return;
    }
    remove(job.kind);
    // What a scan that waits would throw away is not begun, and what would throw the scan's
    // result away comes before it.
    if (job.kind == Change::Scan)
        remove(Change::Device);
    const auto isScan = [](const Job& waiting) { return waiting.kind == Change::Scan; };
    if (job.kind == Change::Device && std::ranges::any_of(m_waiting, isScan))
        return;
    const auto later = std::find_if(m_waiting.begin(), m_waiting.end(), [&](const Job& waiting) {
        return changesConnection(waiting) && *waiting.kind > *job.kind;
    });
    m_waiting.insert(later, std::move(job));
}

bool DeviceSession::changesConnection(const Job& job)
{
    return job.kind && *job.kind <= Change::Scan;
}

void DeviceSession::run(const Job& job)
{
    {
        const QScopedValueRollback handling(m_handling, m_handling + 1);
        job.action();
    }
    scheduleDrain();
}

void DeviceSession::scheduleDrain()
{
    if (m_waiting.empty() || m_drainScheduled)
        return;
    m_drainScheduled = true;
    // Not from here: the conversation that has just ended is still on its way out of its slot.
    QMetaObject::invokeMethod(this, &DeviceSession::drain, Qt::QueuedConnection);
}

void DeviceSession::drain()
{
    m_drainScheduled = false;
    while (idle() && !m_waiting.empty()) {
        const Job job = std::move(m_waiting.front());
        m_waiting.pop_front();
        if (job.target && !holds(*job.target))
            continue;
        if (job.stillWanted && !job.stillWanted())
            continue;
        run(job);
    }
}
