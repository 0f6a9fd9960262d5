#include "devicesession.h"

#include <QScopedValueRollback>

namespace vanto
{

namespace
{
constexpr int AskSilentHandMs = 1000;
} // namespace

DeviceSession::DeviceSession(NodeSource currentNode, QObject* parent)
    : QObject(parent), m_currentNode(std::move(currentNode))
{
    m_askTimer.setInterval(AskSilentHandMs);
    connect(&m_askTimer, &QTimer::timeout, this, &DeviceSession::askSilentHand);
    const LineMonitor& line = LineMonitor::instance();
    connect(&line, &LineMonitor::sig_portLost, this, &DeviceSession::losePort);
    connect(&line, &LineMonitor::sig_operationEnded, this, &DeviceSession::noteResult);
}

DeviceSession::~DeviceSession()
{
    if (m_adapter)
        m_adapter->disconnect();
}

std::optional<HandTarget> DeviceSession::target() const
{
    if (!m_adapter || !m_opened.isCurrent())
        return {};
    const auto node = m_currentNode();
    if (!node)
        return {};
    return HandTarget{m_adapter, *node, m_opened};
}

void DeviceSession::setAdapter(std::shared_ptr<VantoProtocol> adapter)
{
    m_adapter = std::move(adapter);
    m_opened = m_epoch.token();
    m_identity = {};
    m_forceSensing = false;
    m_portOpened = true;
    m_lost = false;
    m_timeouts = 0;
    emit sig_stateChanged();
}

std::optional<HandTarget> DeviceSession::open(std::shared_ptr<VantoProtocol> adapter,
                                              const PortEntry& port)
{
    const LineHold line;
    auto opened = openPort(std::move(adapter), port);
    if (!opened)
        return {};
    HandCall call(*opened);
    std::uint16_t force = 0;
    const std::uint8_t result =
        call.attempt<&VantoProtocol::getFingerForce>(ForceProbeFinger, &force, std::uint8_t{1});
    if (!call.isCurrent())
        return {};
    m_forceSensing = result == ResultCode::Success;
    return opened;
}

std::optional<HandTarget> DeviceSession::openPort(std::shared_ptr<VantoProtocol> adapter,
                                                  const PortEntry& port)
{
    setAdapter(std::move(adapter));
    auto opened = target();
    if (!opened)
        return {};
    m_port = port;
    m_node = opened->node;
    const LineHold line;
    m_portOpened = opened->adapter->connect(port.name.toUtf8().constData(), BaudRate);
    if (m_portOpened)
        emit sig_opened();
    return opened;
}

void DeviceSession::close()
{
    stopAtOnce();
    m_adapter->disconnect();
    m_adapter.reset();
    m_lost = false;
    emit sig_closed();
    emit sig_stateChanged();
}

void DeviceSession::closeIfConnected()
{
    if (isConnected())
        close();
}

void DeviceSession::stopAtOnce()
{
    stop(false);
}

void DeviceSession::stop(bool keepOpen)
{
    const bool open = keepOpen && m_opened.isCurrent();
    m_epoch.advance();
    if (open)
        m_opened = m_epoch.token();
    m_timeouts = 0;
    m_askTimer.stop();
    emit sig_stop();
    emit sig_stateChanged();
}

void DeviceSession::interrupt()
{
    m_queue.dropRequests();
    stop(true);
    emit sig_interrupted();
}

void DeviceSession::setNode(std::uint8_t node)
{
    m_node = node;
    emit sig_nodeChanged(node);
}

void DeviceSession::shutDown()
{
    m_queue.shutDown();
    emit sig_shutDown(); // first, as the halt of a hand that has been left ends at sig_stop
    stopAtOnce();
}

DeviceSession::State DeviceSession::state() const
{
    if (m_scanning)
        return State::Scanning;
    if (!isConnected())
        return State::NotConnected;
    if (m_lost)
        return State::PortLost;
    if (!m_currentNode())
        return State::NoHandChosen;
    if (!m_portOpened || !m_opened.isCurrent())
        return State::NotConnected;
    return isSilent() ? State::NoAnswer : State::Connected;
}

void DeviceSession::setScanning(bool scanning)
{
    m_scanning = scanning;
    emit sig_stateChanged();
}

void DeviceSession::losePort()
{
    m_loss.advance();
    if (!isConnected() || m_lost || m_scanning)
        return;
    m_handWasOpen = target().has_value();
    m_lost = true;
    m_queue.dropRequests();
    m_queue.dropReload();
    stopAtOnce();
    emit sig_portLost();
}

std::optional<HandTarget> DeviceSession::lostHand() const
{
    if (!m_adapter || !m_lost || !m_handWasOpen)
        return {};
    return HandTarget{m_adapter, m_node, m_epoch.token()};
}

bool DeviceSession::reopenPort()
{
    // Another adapter may have taken the name; one that has come back under another name is found
    // by the search.
    if (!isSameAdapter(m_port, availablePorts()))
        return false;
    const LineHold line;
    return m_adapter->connect(m_port.name.toUtf8().constData(), BaudRate);
}

void DeviceSession::resume(const PortEntry& port)
{
    m_port = port;
    m_opened = m_epoch.token();
    m_portOpened = true;
    m_lost = false;
    emit sig_resumed();
    emit sig_stateChanged();
}

void DeviceSession::noteResult(std::uint8_t result)
{
    if (!m_watched || m_asking || !m_portOpened || !target())
        return;
    const bool wasSilent = isSilent();
    if (result == ResultCode::Timeout)
        ++m_timeouts;
    else if (!wasSilent)
        m_timeouts = 0;
    else // it may be another hand
        QTimer::singleShot(0, this, &DeviceSession::askSilentHand);
    if (isSilent() == wasSilent)
        return;
    m_askTimer.start();
    emit sig_stateChanged();
    emit sig_noAnswer();
}

void DeviceSession::askSilentHand()
{
    const auto hand = target();
    if (!hand || !isSilent() || !canTick())
        return;
    std::optional<HandIdentity> identity;
    {
        const QScopedValueRollback asking(m_asking, true);
        HandCall call(*hand);
        identity = HandIdentity::read(call);
    }
    if (!identity || !hand->isCurrent() || !identity->covers(m_identity))
        return;
    if (m_identity.matches(*identity)) {
        m_timeouts = 0;
        m_askTimer.stop();
        emit sig_stateChanged();
        emit sig_answersAgain();
    } else {
        close();
        emit sig_otherHand(identity->text());
    }
}

void DeviceSession::request(std::function<bool()> isStillWanted, RequestQueue::Request action)
{
    if (const auto currentTarget = target())
        m_queue.request(*currentTarget, std::move(isStillWanted), std::move(action));
}

} // namespace vanto
