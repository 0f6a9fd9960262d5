#include "reconnection.h"

#include "porterror.h"

#include <utility>

namespace vanto
{

namespace
{
constexpr int LookMs = 1000;
/// The system sets the permissions of a port some time after the port has appeared, and other
/// programs may try a new port for some seconds.
constexpr int FailuresToReport = 5;
} // namespace

Reconnection::Reconnection(DeviceSession* session, QObject* parent)
    : QObject(parent), m_session(session)
{
    m_timer.setInterval(LookMs);
    connect(&m_timer, &QTimer::timeout, this, &Reconnection::look);
    connect(session, &DeviceSession::sig_portLost, this, &Reconnection::begin);
}

void Reconnection::begin()
{
    m_search = m_session->token();
    m_failedOpenings = 0;
    m_waitingReported = false;
    if (m_session->lostHand() && canComeBack(m_session->port()))
        m_timer.start();
}

void Reconnection::tryNow()
{
    if (m_timer.isActive())
        compare(availablePorts());
}

void Reconnection::look()
{
    if (!m_search.isCurrent()) {
        m_timer.stop();
        return;
    }
    if (m_listing.valid() &&
        m_listing.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    // Listing takes milliseconds that the user interface should not spend every second.
    m_listing = std::async(std::launch::async, [this] {
        QMetaObject::invokeMethod(this, [this, ports = availablePorts()] { compare(ports); });
    });
}

void Reconnection::compare(const QList<PortEntry>& ports)
{
    const PortEntry* found = findAgain(m_session->port(), ports);
    if (!found || !m_search.isCurrent())
        return;
    // Otherwise in a second. Under a dialog, too; its handler checks its target afterwards.
    if (m_session->canTick())
        tryHand(*found);
}

void Reconnection::tryHand(const PortEntry& port)
{
    const auto hand = m_session->lostHand();
    if (!hand || !m_search.isCurrent())
        return;
    std::optional<HandIdentity> identity;
    bool opened = false;
    const Generation::Token loss = m_session->lossToken();
    {
        HandCall call(*hand);
        opened = hand->adapter->connect(port.name.toUtf8().constData(), BaudRate);
        if (opened)
            identity = HandIdentity::read(call);
        else
            noteFailedOpening(port);
        if (identity && (!loss.isCurrent() || !identity->covers(m_session->identity())))
            identity.reset(); // the port was lost again, or the hand is starting
        // Also when it has not opened: the adapter may be asked again only after a disconnection.
        if (!identity)
            hand->adapter->disconnect();
    }
    if (!m_search.isCurrent())
        return;
    if (!identity) {
        if (opened && loss.isCurrent() && !std::exchange(m_waitingReported, true))
            emit sig_waitingForHand();
        return;
    }
    m_timer.stop();
    const bool matches = m_session->identity().matches(*identity);
    if (matches && !m_session->identity().calibration) {
        emit sig_portBack(port);
    } else if (matches) {
        m_session->resume(port);
        emit sig_reconnected(port);
    } else {
        m_session->close();
        emit sig_otherHand(identity->text());
    }
}

void Reconnection::noteFailedOpening(const PortEntry& port)
{
    if (++m_failedOpenings != FailuresToReport)
        return;
    if (const QString cause = describePortError(port.name); !cause.isEmpty())
        emit sig_notOpened(cause);
}

} // namespace vanto
