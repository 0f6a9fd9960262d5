#include "halt.h"

#include "deviceentry.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstdlib>

namespace vanto
{

namespace
{
constexpr std::uint8_t AllFingers = 0x3F;
constexpr std::uint8_t SlowestSpeed = 1;
constexpr int Arrived = 256;     ///< largest distance from the target, in logical ticks
constexpr int StandsStill = 256; ///< largest motion between the two confirming reads
constexpr int ConfirmMs = 50;    ///< between the two confirming reads
constexpr int EventSliceMs = 5;
constexpr int TriesAtOnce = 3;
constexpr int RetryMs = 100;

/// The only calls that pass the gate.
class HaltCall : public HandCall
{
public:
    explicit HaltCall(HandTarget target) : HandCall(std::move(target)) { m_halts = true; }
};

struct Pose {
    PerFinger<std::uint16_t> targets{};
    PerFinger<std::uint16_t> positions{};

    bool hasArrived(std::size_t finger) const
    {
        return std::abs(targets[finger] - positions[finger]) <= Arrived;
    }
};

std::optional<Pose> read(HaltCall& call)
{
    Pose pose;
    if (call.attempt<&VantoProtocol::getFingerPosAll>(pose.targets.data(), pose.positions.data(),
                                                      std::uint8_t{FingerCount}) !=
        ResultCode::Success)
        return {};
    return pose;
}

bool write(HaltCall& call, const PerFinger<std::uint16_t>& goals)
{
    PerFinger<std::uint8_t> speeds{};
    speeds.fill(SlowestSpeed);
    return call.attempt<&VantoProtocol::setFingerPosAll>(
               goals.data(), speeds.data(), std::uint8_t{FingerCount}) == ResultCode::Success;
}

void pause(const HaltCall& call)
{
    const QDeadlineTimer deadline(ConfirmMs, Qt::PreciseTimer);
    QTimer slices;
    slices.start(EventSliceMs);
    while (!deadline.hasExpired() && call.isCurrent())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

enum class Confirmation { Standing, Moving, OtherTargets, NoAnswer };

Confirmation confirm(HaltCall& call, const PerFinger<std::uint16_t>& goals)
{
    const auto first = read(call);
    if (!first)
        return Confirmation::NoAnswer;
    pause(call);
    const auto second = read(call);
    if (!second)
        return Confirmation::NoAnswer;
    if (first->targets != goals || second->targets != goals)
        return Confirmation::OtherTargets;
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        if (std::abs(first->positions[finger] - second->positions[finger]) > StandsStill)
            return Confirmation::Moving;
    return Confirmation::Standing;
}

/// Chooses the targets and writes them. The second time the fingers are almost at rest: those that
/// were moving get the place where they have come to, instead of going back to the first one.
std::optional<PerFinger<std::uint16_t>> chooseGoals(HaltCall& call)
{
    PerFinger<std::uint16_t> goals{};
    PerFinger<bool> moving{};
    for (const bool first : {true, false}) {
        const auto pose = read(call);
        if (!pose)
            return {};
        for (std::size_t finger = 0; finger < FingerCount; ++finger) {
            if (first)
                moving[finger] = !pose->hasArrived(finger);
            goals[finger] = moving[finger] ? pose->positions[finger] : pose->targets[finger];
        }
        if (!write(call, goals))
            return {};
    }
    return goals;
}
} // namespace

Halt::Halt(DeviceSession* session, ListedNodes listedNodes, QObject* parent)
    : QObject(parent), m_session(session), m_listedNodes(std::move(listedNodes))
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryMs);
    connect(&m_retry, &QTimer::timeout, this, &Halt::startWhenIdle);
    connect(session, &DeviceSession::sig_opened, this, &Halt::noteOpened);
    connect(session, &DeviceSession::sig_closed, this, &Halt::leave);
    connect(session, &DeviceSession::sig_portLost, this, &Halt::leave);
    connect(session, &DeviceSession::sig_nodeChanged, this,
            [this](std::uint8_t node) { m_node = node; });
    connect(session, &DeviceSession::sig_shutDown, this, &Halt::leave);
    connect(session, &DeviceSession::sig_stop, this, [this] {
        // A change of the connection leaves a hand whose port is not open, too.
        if (m_state == State::NotConfirmed && !m_running && !m_session->isConnected())
            leave();
    });
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this, [this] {
        // Queued, because the conversation that has just ended is still returning from its slot.
        if (m_waiting)
            QMetaObject::invokeMethod(this, &Halt::startWhenIdle, Qt::QueuedConnection);
    });
}

Halt::~Halt()
{
    MotionGate::set(MotionGate::State::Open);
}

void Halt::setBlocked(bool blocked)
{
    m_blocked = blocked;
    emit sig_stateChanged();
}

void Halt::noteOpened()
{
    leave();
    const auto hand = m_session->target();
    m_adapter = hand->adapter;
    m_node = hand->node;
    m_port = m_session->port();
    const bool latched = std::ranges::find(m_latched, key()) != m_latched.end();
    setState(latched ? State::Halted : State::Ready);
}

/// Ends a halt that has not been confirmed. A confirmed one holds until the hand is continued or
/// another one is open.
void Halt::leave()
{
    m_run.advance();
    m_retry.stop();
    m_waiting = false;
    if (m_state != State::Halted)
        setState(State::Ready);
}

void Halt::setState(State state)
{
    m_state = state;
    switch (state) {
    case State::Halting:
    case State::NotConfirmed:
        MotionGate::set(MotionGate::State::Closed);
        break;
    case State::Halted:
        MotionGate::set(MotionGate::State::Latched);
        break;
    case State::Ready:
    case State::SentToAll:
        MotionGate::set(MotionGate::State::Open);
        break;
    }
    emit sig_stateChanged();
}

Halt::Key Halt::key() const
{
    return {m_port.name, m_adapter->protocolType(), m_node};
}

bool Halt::isSerialCtrl() const
{
    return m_adapter->protocolType() == PROTOCOL_TYPE_SERIALCTRL;
}

HandTarget Halt::target(std::uint8_t node) const
{
    return {m_adapter, node, m_run.token()};
}

void Halt::press()
{
    if (!isAvailable() || m_running || m_state == State::Halting)
        return;
    if (m_session->isPortClosed()) {
        emit sig_unreachable();
        return;
    }
    {
        const QScopedValueRollback running(m_running, true);
        m_retry.stop();
        if (m_state != State::NotConfirmed)
            setState(State::Halting);
        Exchange::abandon();
        m_session->interrupt();
    }
    m_failures = 0;
    m_hands.clear();
    if (m_node == AnyNode && isSerialCtrl()) {
        for (const std::uint8_t node : m_listedNodes())
            m_hands.push_back({.node = node, .goals = {}});
    } else {
        m_hands.push_back({.node = m_node, .goals = {}});
    }
    startWhenIdle();
}

void Halt::startWhenIdle()
{
    if (m_running || (m_state != State::Halting && m_state != State::NotConfirmed))
        return;
    m_waiting = Conversation::isActive();
    if (!m_waiting)
        run();
}

void Halt::run()
{
    const auto token = m_run.token();
    const bool confirmed = [this] {
        const QScopedValueRollback running(m_running, true);
        return runOnLine();
    }();
    if (token.isCurrent())
        finish(confirmed);
}

/// Opens the port for a hand that has just been left. True if all fingers stand.
bool Halt::runOnLine()
{
    const LineHold line;
    const bool wasLeft = !m_session->isConnected();
    const auto token = m_run.token();
    const auto adapter = m_adapter;
    if (wasLeft && !adapter->connect(m_port.name.toUtf8().constData(), BaudRate)) {
        adapter->disconnect(); // otherwise it cannot be asked again
        m_failures = std::max(m_failures + 1, TriesAtOnce);
        return false;
    }
    bool confirmed = false;
    do {
        confirmed = tryAll();
        m_failures = confirmed ? 0 : m_failures + 1;
    } while (!confirmed && m_failures < TriesAtOnce && token.isCurrent());
    if (wasLeft)
        adapter->disconnect();
    return confirmed;
}

/// Tries once to halt all hands that have not confirmed it.
bool Halt::tryAll()
{
    if (m_node == AnyNode && isSerialCtrl()) {
        HaltCall(target(AnyNode)).attempt<&VantoProtocol::fingerStop>(AllFingers);
        // A position must not be written to node 255: it would be that of one hand, and reach all.
        if (m_hands.empty())
            return true;
    }
    bool allConfirmed = true;
    for (Hand& hand : m_hands) {
        hand.confirmed = hand.confirmed || halt(hand);
        allConfirmed = allConfirmed && hand.confirmed;
    }
    return allConfirmed;
}

bool Halt::halt(Hand& hand)
{
    HaltCall call(target(hand.node));
    if (isSerialCtrl())
        call.attempt<&VantoProtocol::fingerStop>(AllFingers);
    // A repetition writes the same targets. With new ones a loaded finger would creep.
    if (hand.goals && !write(call, *hand.goals))
        hand.goals.reset();
    if (!hand.goals)
        hand.goals = chooseGoals(call);
    if (!hand.goals)
        return false;
    const Confirmation confirmation = confirm(call, *hand.goals);
    if (confirmation == Confirmation::OtherTargets)
        hand.goals.reset();
    return confirmation == Confirmation::Standing;
}

void Halt::finish(bool confirmed)
{
    if (confirmed && m_hands.empty()) {
        setState(State::SentToAll);
    } else if (confirmed) {
        if (std::ranges::find(m_latched, key()) == m_latched.end())
            m_latched.push_back(key());
        setState(State::Halted);
    } else {
        setState(State::NotConfirmed);
        m_retry.start();
        return;
    }
    emit sig_halted();
}

void Halt::proceed()
{
    m_session->runWhenIdle(DeviceSession::Kind::Continue, [this] {
        if (m_state == State::Halted && isAvailable())
            continueHand();
    });
}

void Halt::continueHand()
{
    bool accepted = true;
    if (isSerialCtrl()) {
        const bool wasLeft = !m_session->isConnected();
        const auto adapter = m_adapter;
        HaltCall call(target(m_node));
        accepted = (!wasLeft || adapter->connect(m_port.name.toUtf8().constData(), BaudRate)) &&
                   call.attempt<&VantoProtocol::fingerStart>(AllFingers) == ResultCode::Success;
        if (wasLeft)
            adapter->disconnect();
    }
    if (m_state != State::Halted)
        return;
    if (!accepted) {
        emit sig_notContinued();
        return;
    }
    std::erase(m_latched, key());
    setState(State::Ready);
    emit sig_continued();
}

} // namespace vanto
