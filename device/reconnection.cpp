#include "reconnection.h"

namespace vanto
{

namespace
{
constexpr int LookMs = 1000;
}

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
    if (canComeBack(m_session->port()))
        m_timer.start();
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
    m_session->runWhenIdle(DeviceSession::Kind::Reconnect,
                           [this, port = *found] { tryHand(port); });
}

void Reconnection::tryHand(const PortEntry& port)
{
    const auto hand = m_session->lostHand();
    if (!hand || !m_search.isCurrent())
        return;
    std::optional<HandIdentity> identity;
    {
        HandCall call(*hand);
        if (hand->adapter->connect(port.name.toUtf8().constData(), BaudRate))
            identity = HandIdentity::read(call);
        // Also when it has not opened: the adapter may be asked again only after a disconnection.
        if (!identity)
            hand->adapter->disconnect();
    }
    if (!identity || !m_search.isCurrent())
        return;
    m_timer.stop();
    if (m_session->identity().matches(*identity)) {
        m_session->resume(port);
        emit sig_reconnected(port);
    } else {
        m_session->close();
        emit sig_otherHand(identity->text());
    }
}

} // namespace vanto
