#include "connection.h"

#include "calltext.h"
#include "deviceentry.h"
#include "eventwait.h"
#include "interruption.h"
#include "portchoice.h"

#include <array>

namespace vanto
{

namespace
{
constexpr std::uint8_t SerialCtrlRefused = 0xFF;
constexpr std::uint8_t AllFingers = 0x3F;
constexpr int HaltGivenUpMs = 3000; ///< the hand may be starting, or the line be disturbed

std::shared_ptr<VantoProtocol> adapterOf(PROTOCOL_TYPE protocol)
{
    const int major =
        protocol == PROTOCOL_TYPE_SERIALCTRL ? SerialCtrlMajorVersion : ModbusMajorVersion;
    return VantoProtocol::getProtocolInstance(protocol, static_cast<unsigned char>(major), 0);
}

} // namespace

Connection::Connection(const GeneralOptions& options)
    : m_options(options),
      m_node(options.node.value_or(0)),
      m_session([this] { return std::optional(m_node); }),
      m_halt(&m_session, [] { return std::vector<std::uint8_t>(); })
{
    m_session.setWatched(false);
    connect(&m_session, &DeviceSession::sig_portLost, this, &Connection::reportPortLost);
    connect(&m_session, &DeviceSession::sig_stop, this, &Connection::sig_stopped);
    connect(&m_halt, &Halt::sig_unreachable, this, [this] { m_unreachable = true; });
}

Connection::~Connection() = default;

std::optional<QString> Connection::portName()
{
    const PortChoice choice = choosePort(m_options.port);
    if (!choice.error.isEmpty()) {
        m_answer->fail(choice.status, choice.error);
        return {};
    }
    return choice.name;
}

bool Connection::isModbus() const
{
    return isOpen() ? m_adapter->protocolType() == PROTOCOL_TYPE_MODBUS_RTU
                    : m_options.protocol == PROTOCOL_TYPE_MODBUS_RTU;
}

bool Connection::isUsable(PROTOCOL_TYPE protocol) const
{
    // Node 0 is the broadcast address of Modbus, to which no hand answers.
    return !m_options.protocol ? protocol == PROTOCOL_TYPE_SERIALCTRL || m_node != 0
                               : protocol == *m_options.protocol;
}

bool Connection::isReady()
{
    if (!m_answer)
        return false;
    if (m_halt.state() == Halt::State::NotConfirmed)
        m_answer->fail(ExitStatus::NoAnswer, Halt::stateText(m_halt.state()), ResultCode::Timeout);
    else if (!Interruption::isRequested() && !target().isCurrent())
        reportPortLost();
    return !m_answer->hasFailed() && !Interruption::isRequested();
}

bool Connection::open()
{
    if (Interruption::isRequested() || m_answer->hasFailed())
        return false;
    if (m_node == 0 && isModbus()) {
        // The broadcast address, to which no hand answers but which every hand obeys.
        m_answer->fail(ExitStatus::Usage, QStringLiteral("Over Modbus no hand has node 0."));
        return false;
    }
    if (isOpen())
        return isReady() && isAnswering();
    const auto port = portName();
    if (!port)
        return false;
    for (const PROTOCOL_TYPE protocol : {PROTOCOL_TYPE_SERIALCTRL, PROTOCOL_TYPE_MODBUS_RTU}) {
        if (!isUsable(protocol))
            continue;
        const Opening result = openWith(protocol, *port, !m_options.protocol);
        if (result != Opening::Silent)
            return result == Opening::Answered;
        m_session.close();
        if (Interruption::isRequested())
            return false;
    }
    m_answer->fail(ExitStatus::NoAnswer, CallText::noHand(m_node), ResultCode::Timeout);
    return false;
}

Connection::Opening Connection::openWith(PROTOCOL_TYPE protocol, const QString& port, bool ask)
{
    m_adapter = adapterOf(protocol);
    m_session.openPort(m_adapter, PortEntry{port, {}});
    if (m_session.isPortClosed()) {
        m_session.close();
        reportNotOpened(port, protocol);
        return Opening::Failed;
    }
    return ask ? askHand() : Opening::Answered;
}

/// Whether the hand answers to the protocol of the open port.
Connection::Opening Connection::askHand()
{
    const auto protocol = m_adapter->protocolType();
    HandCall call(target());
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    std::uint16_t revision = 0;
    const std::uint8_t result =
        call.attempt<&VantoProtocol::getFirmwareVersion>(&major, &minor, &revision);
    if (!call.isCurrent())
        return m_answer->hasFailed() ? Opening::Failed : Opening::Silent; // lost, or a signal
    const bool answered = result == ResultCode::Success ||
                          (protocol == PROTOCOL_TYPE_SERIALCTRL && result == SerialCtrlRefused);
    if (!answered)
        return Opening::Silent;
    m_answered.insert(m_node);
    return Opening::Answered;
}

/// Nothing is written to a hand that may speak another protocol than the one found out.
bool Connection::isAnswering()
{
    if (m_options.protocol || m_answered.contains(m_node))
        return true;
    if (askHand() == Opening::Answered)
        return true;
    if (!Interruption::isRequested())
        m_answer->fail(ExitStatus::NoAnswer, CallText::noHand(m_node), ResultCode::Timeout);
    return false;
}

void Connection::reportPortLost()
{
    if (m_answer)
        m_answer->fail(ExitStatus::NoAnswer, CallText::portLost(), ResultCode::Timeout);
}

void Connection::reportNotOpened(const QString& port, PROTOCOL_TYPE protocol)
{
    const QString cause = describePortProblem(port);
    m_answer->fail(ExitStatus::PortNotOpened,
                   CallText::portNotOpened(port, protocol) +
                       (cause.isEmpty() ? QString() : QStringLiteral(". ") + cause));
}

void Connection::followNode(std::uint8_t node)
{
    if (m_moved.erase(m_node) > 0)
        m_moved.insert(node);
    m_halt.address(m_node);
    m_node = node;
    m_answered.insert(node);
    m_session.setNode(node);
}

HandTarget Connection::target() const
{
    const auto open = m_session.target();
    if (!open || Interruption::isRequested())
        return {m_adapter, m_node, {}};
    return *open;
}

void Connection::stop()
{
    if (isHalting())
        return;
    m_session.stopAtOnce();
    Exchange::abandon();
}

void Connection::interrupt()
{
    if (isHalting())
        return;
    Exchange::abandon();
    m_session.interrupt();
}

void Connection::refuseMotions(const QString& reason)
{
    m_refusal = reason;
    MotionGate::setRefusing(!reason.isEmpty());
}

void Connection::noteMotion()
{
    if (MotionGate::state() == MotionGate::State::Open)
        m_moved.insert(m_node);
}

bool Connection::halt()
{
    m_moved.insert(m_node);
    return haltMoved();
}

bool Connection::haltMoved()
{
    return haltNodes({m_moved.begin(), m_moved.end()});
}

bool Connection::haltNodes(std::vector<std::uint8_t> nodes)
{
    m_unreachable = false;
    // A position must not be written to node 255.
    const bool isSerialCtrl = m_adapter && m_adapter->protocolType() == PROTOCOL_TYPE_SERIALCTRL;
    const bool any = isSerialCtrl && std::erase(nodes, AnyNode) > 0;
    m_halt.address(any ? AnyNode : nodes.front());
    if (nodes.empty())
        m_halt.press();
    else
        m_halt.haltNodes(nodes);
    return awaitHalt(nodes, any);
}

bool Connection::isHalting() const
{
    return m_halt.state() == Halt::State::Halting || m_halt.state() == Halt::State::NotConfirmed;
}

/// `any`: every hand on the bus is meant, of which only `nodes` can confirm it.
bool Connection::awaitHalt(const std::vector<std::uint8_t>& nodes, bool any)
{
    const auto ended = [this] { return m_unreachable || !isHalting(); };
    waitUntil(ended, m_options.patience * HaltGivenUpMs);
    const Halt::State state = m_halt.state();
    if (state == Halt::State::Halted)
        for (const std::uint8_t node : nodes) // the other hands still move
            m_moved.erase(node);
    const bool halted = state == Halt::State::Halted && !any;
    m_answer->data.insert(HaltedMember, halted);
    if (halted)
        return true;
    QString text = Halt::stateText(state);
    if (state == Halt::State::Halted)
        text = Halt::stateText(Halt::State::SentToAll);
    else if (m_unreachable || state == Halt::State::Ready)
        text = Halt::unreachableText();
    if (m_answer->hasFailed()) // the reason for the halt, such as too much current
        m_answer->appendReason(text);
    else
        m_answer->fail(ExitStatus::NoAnswer, text, ResultCode::Timeout);
    return false;
}

/// The gate does not refuse what ends a halt.
bool Connection::isRefusing()
{
    if (m_refusal.isEmpty())
        return false;
    reportHalted();
    return true;
}

bool Connection::proceed()
{
    if (isRefusing())
        return false;
    if (isModbus() && m_halt.state() != Halt::State::Halted)
        return true;
    if (m_halt.state() != Halt::State::Halted) {
        if (m_node == AnyNode) {
            m_answer->fail(ExitStatus::Usage,
                           QStringLiteral("Hands are continued one by one, not through node 255."));
            return false;
        }
        // A halt by an earlier process may have left old targets behind, towards which the fingers
        // would start.
        if (!haltNodes({m_node}))
            return false;
    }
    if (isRefusing()) // since the halt
        return false;
    bool refused = false;
    const QMetaObject::Connection notContinued =
        connect(&m_halt, &Halt::sig_notContinued, this, [&refused] { refused = true; });
    m_halt.proceed();
    waitUntil([&] { return refused || m_halt.state() != Halt::State::Halted; },
              m_options.patience * HaltGivenUpMs);
    disconnect(notContinued);
    if (m_halt.state() != Halt::State::Halted) {
        if (!isRefusing())
            return true;
        haltNodes({m_node}); // the hand has been continued, although too late
        return false;
    }
    m_answer->fail(refused ? ExitStatus::Refused : ExitStatus::NoAnswer,
                   refused ? QStringLiteral("The hand has not accepted to continue.")
                           : CallText::noHand(m_node));
    return false;
}

/// Over Modbus a refusal and an invalid reply have the same code.
ExitStatus Connection::failureStatus(const HandTarget& target, std::uint8_t result)
{
    const bool isRefusal =
        result == SerialCtrlRefused || (result != ResultCode::Timeout && target.adapter &&
                                        target.adapter->protocolType() == PROTOCOL_TYPE_MODBUS_RTU);
    return isRefusal ? ExitStatus::Refused : ExitStatus::NoAnswer;
}

bool Connection::reportTimeout(const HandTarget& target)
{
    m_answer->fail(ExitStatus::NoAnswer, CallText::timeout(target), ResultCode::Timeout);
    return true;
}

void Connection::reportFailure(const HandTarget& target, std::string_view operation,
                               std::uint8_t result, std::uint8_t subError)
{
    m_answer->fail(failureStatus(target, result),
                   CallText::failure(target, operation, result, subError), result, subError);
}

void Connection::reportHalted()
{
    if (!Interruption::isRequested()) // a signal has its own text
        m_answer->fail(ExitStatus::Refused,
                       m_refusal.isEmpty()
                           ? QStringLiteral("Halted. Motions are refused until 'continue'.")
                           : m_refusal);
}

} // namespace vanto
