#include "handtask.h"

#include "parameterset.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

namespace vanto
{

HandTask::HandTask(HandTarget target, int timeoutsInARow)
    : m_target(std::move(target)), m_timeoutsInARow(timeoutsInARow)
{
    QObject::connect(&LineMonitor::instance(), &LineMonitor::sig_portLost, &m_context,
                     [this] { m_portLost = true; });
}

HandTask::~HandTask() = default;

QString HandTask::outcomeText() const
{
    const auto text = [](const char* english) {
        return QCoreApplication::translate("HandTask", english);
    };
    switch (m_outcome) {
    case Outcome::Running:
    case Outcome::Completed:
        break;
    case Outcome::Cancelled:
        return text(QT_TRANSLATE_NOOP("HandTask", "Cancelled."));
    case Outcome::NoAnswer:
        return text(QT_TRANSLATE_NOOP("HandTask", "The hand does not answer."));
    case Outcome::PortLost:
        return text(QT_TRANSLATE_NOOP("HandTask", "The port is no longer available."));
    case Outcome::Superseded:
        return text(QT_TRANSLATE_NOOP("HandTask", "The hand has been closed or halted."));
    case Outcome::OtherHand:
        return text(
            QT_TRANSLATE_NOOP("HandTask", "Another hand answers. Nothing is written to it."));
    case Outcome::AnyNode:
        return text(QT_TRANSLATE_NOOP(
            "HandTask", "Node 255 is every hand on the bus. Nothing is written to it."));
    }
    return {};
}

void HandTask::step()
{
    if (m_inStep || !isRunning())
        return;
    m_repeat = m_cancelled || !m_target.isCurrent();
    if (!m_repeat) {
        const QScopedValueRollback inStep(m_inStep, true);
        perform(m_done);
        if (!isRunning())
            return;
    }
    if (!m_repeat && ++m_done >= stepCount())
        finish(Outcome::Completed);
    else if (m_portLost)
        finish(Outcome::PortLost);
    else if (!m_target.isCurrent())
        finish(Outcome::Superseded);
    else if (m_cancelled)
        finish(Outcome::Cancelled);
}

HandTask::Outcome HandTask::run(const Progress& progress)
{
    while (isRunning()) {
        step();
        if (progress)
            progress(m_done, stepCount());
    }
    return m_outcome;
}

void HandTask::cancel()
{
    m_cancelled = true;
    if (!m_inStep && isRunning())
        finish(Outcome::Cancelled);
}

void HandTask::finish(Outcome outcome)
{
    if (isRunning())
        m_outcome = outcome;
}

bool HandTask::note(const HandCall& call, std::uint8_t result)
{
    m_timeouts = result == ResultCode::Timeout ? m_timeouts + 1 : 0;
    if (m_portLost)
        finish(Outcome::PortLost);
    else if (!call.isCurrent())
        finish(Outcome::Superseded);
    else if (m_timeouts >= m_timeoutsInARow)
        finish(Outcome::NoAnswer);
    return isRunning();
}

bool HandTask::noteRead(const HandCall& call, std::uint8_t result)
{
    if (!note(call, result))
        return false;
    const bool isLate = result == ResultCode::Timeout;
    m_damagedReplies += isDamagedReply(result) ? 1 : 0;
    if (isLate || (isDamagedReply(result) && m_damagedReplies < MaxDamagedReplies)) {
        repeatStep();
        return false;
    }
    m_damagedReplies = 0;
    return true;
}

} // namespace vanto
