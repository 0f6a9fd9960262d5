#include "devicesession.h"

namespace vanto
{

namespace
{
constexpr std::uint8_t ForceProbeFinger = 1;
} // namespace

DeviceSession::DeviceSession(NodeSource currentNode, QObject* parent)
    : QObject(parent), m_currentNode(std::move(currentNode))
{
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
}

std::optional<HandTarget> DeviceSession::open(std::shared_ptr<VantoProtocol> adapter,
                                              const QString& port)
{
    setAdapter(std::move(adapter));
    const auto opened = target();
    if (!opened)
        return {};
    HandCall call(*opened);
    opened->adapter->connect(port.toUtf8().constData(), BaudRate);
    std::uint16_t force = 0;
    const std::uint8_t result =
        call.attempt<&VantoProtocol::getFingerForce>(ForceProbeFinger, &force, std::uint8_t{1});
    if (!call.isCurrent())
        return {};
    m_forceSensing = result == ResultCode::Success;
    return opened;
}

void DeviceSession::close()
{
    stopAtOnce();
    m_adapter->disconnect();
    m_adapter.reset();
}

void DeviceSession::closeIfConnected()
{
    if (isConnected())
        close();
}

void DeviceSession::stopAtOnce()
{
    m_epoch.advance();
    emit sig_stop();
}

void DeviceSession::shutDown()
{
    m_queue.shutDown();
    stopAtOnce();
}

void DeviceSession::request(std::function<bool()> isStillWanted, RequestQueue::Request action)
{
    if (const auto currentTarget = target())
        m_queue.request(*currentTarget, std::move(isStillWanted), std::move(action));
}

} // namespace vanto
