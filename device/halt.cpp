#include "halt.h"

#include "deviceentry.h"

#include <QCoreApplication>
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
constexpr int ExitMs = 1000; ///< after Exit no further try begins later than this

/// The context of the texts, which the window shows beside its Halt button.
struct HaltText {
    Q_DECLARE_TR_FUNCTIONS(vanto::HaltControl)
};

/// The only calls that pass the gate.
class HaltCall : public HandCall
{
public:
    explicit HaltCall(HandTarget target) : HandCall(std::move(target))
    {
        m_origin = HandAction::Origin::Halt;
    }
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

/// Whether two reads show the targets as written and no motion.
bool standStill(HaltCall& call, const PerFinger<std::uint16_t>& goals)
{
    const auto first = read(call);
    if (!first || first->targets != goals)
        return false;
    pause(call);
    const auto second = read(call);
    if (!second || second->targets != goals)
        return false;
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        if (std::abs(first->positions[finger] - second->positions[finger]) > StandsStill)
            return false;
    return true;
}

/// Chooses the targets and writes them. The second time the fingers are almost at rest: those that
/// were moving get the place where they have come to, instead of going back to the first one.
bool choose(HaltCall& call, Pose pose, std::optional<PerFinger<std::uint16_t>>& goals)
{
    PerFinger<bool> moving{};
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        moving[finger] = !pose.hasArrived(finger);
    for (const bool first : {true, false}) {
        if (!first) {
            const auto slowed = read(call);
            if (!slowed)
                return false;
            pose = *slowed;
        }
        goals = pose.targets;
        for (std::size_t finger = 0; finger < FingerCount; ++finger)
            if (moving[finger])
                (*goals)[finger] = pose.positions[finger];
        if (!write(call, *goals))
            return false;
    }
    return true;
}
} // namespace

Halt::Halt(DeviceSession* session, ListedNodes listedNodes, QObject* parent)
    : QObject(parent), m_session(session), m_listedNodes(std::move(listedNodes))
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryMs);
    connect(&m_retry, &QTimer::timeout, this, &Halt::startWhenIdle);
    connect(session, &DeviceSession::sig_opened, this, &Halt::noteOpened);
    connect(session, &DeviceSession::sig_closed, this, [this] {
        m_open = false;
        leave();
    });
    connect(session, &DeviceSession::sig_resumed, this, &Halt::followPort);
    connect(session, &DeviceSession::sig_portLost, this, &Halt::leave);
    connect(session, &DeviceSession::sig_nodeChanged, this, &Halt::follow);
    connect(session, &DeviceSession::sig_shutDown, this, &Halt::finishBeforeExit);
    connect(session, &DeviceSession::sig_stop, this, [this] {
        // A change of the connection leaves a hand whose port is not open, too. Exit does not.
        if (m_state == State::NotConfirmed && !m_running && !m_open && m_lastTry.isForever())
            leave();
    });
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this, [this] {
        // Queued, because the conversation that has just ended is still returning from its slot.
        if (m_waiting)
            QMetaObject::invokeMethod(this, &Halt::startWhenIdle, Qt::QueuedConnection);
    });
}

QString Halt::stateText(State state)
{
    switch (state) {
    case State::Ready:
        return {};
    case State::Halting:
        return HaltText::tr("Halting");
    case State::Halted:
        return HaltText::tr("Halted");
    case State::NotConfirmed:
        return HaltText::tr("Halt not confirmed. Switch the power off.");
    case State::SentToAll:
        return HaltText::tr("Stop sent to all hands, not confirmed. Switch the power off.");
    }
    return {};
}

QString Halt::unreachableText()
{
    return HaltText::tr("The port is lost; nothing can be sent. Switch the power off.");
}

Halt::~Halt()
{
    MotionGate::set(MotionGate::State::Open);
}

bool Halt::isPending() const
{
    return m_state == State::Halting ||
           (m_state == State::NotConfirmed && (m_waiting || m_running));
}

void Halt::setBlocked(bool blocked)
{
    m_blocked = blocked;
    emit sig_stateChanged();
}

void Halt::noteOpened()
{
    const auto hand = m_session->target();
    m_adapter = hand->adapter;
    m_node = hand->node;
    m_port = m_session->port();
    m_open = true;
    m_state = State::Ready;
    leave();
}

/// A halt that is not confirmed gets a last try. What could not be confirmed remains the state.
void Halt::finishBeforeExit()
{
    if (m_retry.isActive()) {
        m_retry.stop();
        m_waiting = true;
        QMetaObject::invokeMethod(this, &Halt::startWhenIdle, Qt::QueuedConnection);
    }
    if (isPending())
        m_lastTry.setRemainingTime(ExitMs);
    else if (m_state != State::SentToAll)
        leave();
}

/// The hand has got another node.
void Halt::follow(std::uint8_t newNode)
{
    if (Latch* halted = latch())
        std::ranges::replace(halted->nodes, m_node, newNode);
    m_node = newNode;
}

/// The adapter can have come back under another name.
void Halt::followPort()
{
    if (Latch* halted = latch())
        halted->port = m_session->port().name;
    m_port = m_session->port();
    leave();
}

/// Ends a halt that has not been confirmed. A confirmed one holds until the user continues.
void Halt::leave()
{
    m_run.advance();
    m_retry.stop();
    m_waiting = false;
    if (m_adapter)
        setState(latch() ? State::Halted : State::Ready);
}

void Halt::setState(State state)
{
    m_state = state;
    m_session->holdJobs(state == State::Halting);
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

Halt::Latch* Halt::latch()
{
    const auto found = std::ranges::find(m_latches, m_port.name, &Latch::port);
    return found == m_latches.end() ? nullptr : &*found;
}

bool Halt::isSerialCtrl() const
{
    return m_adapter->protocolType() == PROTOCOL_TYPE_SERIALCTRL;
}

bool Halt::isAnyNode() const
{
    return m_node == AnyNode && isSerialCtrl();
}

/// Opens the port for a hand that has been left.
bool Halt::openPort(const std::shared_ptr<VantoProtocol>& adapter) const
{
    adapter->disconnect(); // after a failure it cannot be asked again otherwise
    return adapter->connect(m_port.name.toUtf8().constData(), BaudRate);
}

HandTarget Halt::target(std::uint8_t node) const
{
    return {m_adapter, node, m_run.token()};
}

/// Stops everything else. Returns whether a halt can begin.
bool Halt::interruptAll()
{
    if (!isAvailable() || m_running || m_state == State::Halting)
        return false;
    if (m_open && m_session->isPortClosed()) {
        emit sig_unreachable();
        return false;
    }
    const QScopedValueRollback running(m_running, true);
    m_retry.stop();
    if (m_state != State::NotConfirmed)
        setState(State::Halting);
    Exchange::abandon();
    m_session->interrupt();
    m_failures = 0;
    m_hands.clear();
    return true;
}

void Halt::haltNodes(const std::vector<std::uint8_t>& nodes)
{
    if (!interruptAll())
        return;
    for (const std::uint8_t node : nodes)
        m_hands.push_back({.node = node, .goals = {}});
    startWhenIdle();
}

void Halt::press()
{
    if (!interruptAll())
        return;
    if (isAnyNode()) {
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
    const bool wasLeft = !m_open;
    const auto token = m_run.token();
    const auto adapter = m_adapter;
    if (wasLeft && !openPort(adapter)) {
        adapter->disconnect();
        m_failures = std::max(m_failures + 1, TriesAtOnce);
        return false;
    }
    bool confirmed = false;
    do {
        confirmed = tryAll();
        m_failures = confirmed ? 0 : m_failures + 1;
    } while (!confirmed && m_failures < TriesAtOnce && token.isCurrent() &&
             !m_lastTry.hasExpired());
    if (wasLeft)
        adapter->disconnect();
    return confirmed;
}

/// Tries once to halt all hands that have not confirmed it.
bool Halt::tryAll()
{
    if (isAnyNode()) {
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
    const auto pose = read(call);
    if (!pose)
        return false;
    // A repetition writes the same targets. With new ones a loaded finger would creep.
    const bool hasGoals = hand.goals && pose->targets == *hand.goals;
    if (hasGoals ? !write(call, *hand.goals) : !choose(call, *pose, hand.goals))
        return false;
    return standStill(call, *hand.goals);
}

void Halt::finish(bool confirmed)
{
    if (!confirmed) {
        setState(State::NotConfirmed);
        m_retry.start();
        return;
    }
    m_session->dropRequests(); // made during the halt
    if (!m_hands.empty())
        latchHands();
    setState(m_hands.empty() ? State::SentToAll : State::Halted);
    emit sig_halted();
}

void Halt::latchHands()
{
    if (!latch())
        m_latches.push_back({m_port.name, m_adapter, {}});
    // A hand can have been halted over both protocols. Only SerialCtrl needs a start afterwards.
    if (isSerialCtrl() && latch()->adapter != m_adapter)
        *latch() = {m_port.name, m_adapter, {}};
    if (latch()->adapter != m_adapter)
        return;
    for (const Hand& hand : m_hands)
        if (std::ranges::find(latch()->nodes, hand.node) == latch()->nodes.end())
            latch()->nodes.push_back(hand.node);
}

void Halt::proceed()
{
    m_session->runWhenIdle(DeviceSession::Kind::Continue, [this] {
        if (m_state == State::Halted && isAvailable() && latch())
            continueHands();
    });
}

void Halt::continueHands()
{
    const Latch halted = *latch();
    const bool accepted =
        halted.adapter->protocolType() != PROTOCOL_TYPE_SERIALCTRL || startFingers(halted);
    if (m_state != State::Halted)
        return;
    if (!accepted) {
        emit sig_notContinued();
        return;
    }
    std::erase_if(m_latches, [this](const Latch& each) { return each.port == m_port.name; });
    setState(State::Ready);
    emit sig_continued();
}

/// Not by node 255: a hand that is not listed still has its old target.
bool Halt::startFingers(const Latch& latch)
{
    const LineHold line;
    const bool wasLeft = !m_open;
    if (!wasLeft && latch.adapter != m_adapter)
        return false; // the port is open with the other protocol
    bool accepted = !wasLeft || openPort(latch.adapter);
    for (const std::uint8_t node : latch.nodes)
        accepted = accepted &&
                   HaltCall({latch.adapter, node, m_run.token()})
                           .attempt<&VantoProtocol::fingerStart>(AllFingers) == ResultCode::Success;
    if (wasLeft)
        latch.adapter->disconnect();
    return accepted;
}

} // namespace vanto
