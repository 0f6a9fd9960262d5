#include "sequenceplayer.h"

#include "motionguard.h"
#include "motionunit.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>
#include <utility>

namespace vanto
{

namespace
{
constexpr int PollIntervalMs = 10;
constexpr int StretchedFingers = 5; ///< in the preparation pose: all but the thumb root
constexpr int StretchedPosition = 0;
constexpr int FullSpeed = 255;

qint64 nowMs()
{
    return QDateTime::currentMSecsSinceEpoch();
}

SequenceDataItem preparationPose()
{
    return {QList<int>(StretchedFingers, StretchedPosition),
            QList<int>(StretchedFingers, FullSpeed), 0};
}

QString hex(unsigned number)
{
    return QStringLiteral("%1").arg(number, 2, 16, QLatin1Char('0'));
}
} // namespace

/// A call whose actions are those of a play.
class SequencePlayer::PlayCall : public HandCall
{
public:
    PlayCall(HandTarget target, CallReport& report) : HandCall(std::move(target), report)
    {
        m_origin = HandAction::Origin::Player;
    }
    void reportStep(int index) const
    {
        HandAction action;
        action.kind = HandAction::Kind::Step;
        action.value = index;
        report(action);
    }
};

SequencePlayer::SequencePlayer(QObject* parent) : QObject(parent)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(PollIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &SequencePlayer::updatePlay);
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this, [this] {
        if (std::exchange(m_missedTick, false))
            QMetaObject::invokeMethod(this, &SequencePlayer::updatePlay, Qt::QueuedConnection);
    });
}

void SequencePlayer::setVantoProtocol(std::shared_ptr<VantoProtocol> protocol, int node)
{
    m_protocol = std::move(protocol);
    m_node = node;
}

bool SequencePlayer::play(const SequenceData& data, int startIndex, int endIndex, bool playForEdit)
{
    const auto count = static_cast<int>(data.sequences.size());
    if (isPlaying() || Exchange::active() || !m_protocol || startIndex < 0 || startIndex >= count)
        return false;
    m_run.advance();
    PlayCall call = beginCall();
    const QScopedValueRollback sending(m_sending, true);
    m_playForEdit = playForEdit;
    m_startIndex = startIndex;
    m_endIndex = endIndex < 0 ? count : std::min(endIndex, count);
    m_round = 1;
    m_data = data;
    m_stepStart = nowMs();
    const bool onlySend = !playForEdit && m_endIndex == startIndex;
    if (!setupVanto(startIndex, playForEdit, call))
        return false;
    if (onlySend)
        return true;
    m_timer.start();
    if (!playForEdit)
        emit sig_updatePlaying(true, m_playingIndex, 0, {});
    return true;
}

void SequencePlayer::stop()
{
    m_run.advance();
    if (m_sending)
        Exchange::abandon();
    if (isPlaying())
        _stop({});
}

void SequencePlayer::updatePlay()
{
    if (!isPlaying())
        return;
    if (Conversation::isActive()) {
        m_missedTick = Conversation::isBackground();
        return;
    }
    if (!m_protocol) {
        _stop(tr("No VANTO"));
        return;
    }
    const QDeadlineTimer nextTick(PollIntervalMs, Qt::PreciseTimer);
    {
        PlayCall call = beginCall();
        const QScopedValueRollback sending(m_sending, true);
        poll(call);
    }
    if (!isPlaying()) {
        emit sig_ended();
        return;
    }
    // Ticks during a long poll are lost. Posted after the end of the conversation, so that jobs
    // waiting for it run first.
    if (nextTick.hasExpired())
        QMetaObject::invokeMethod(this, &SequencePlayer::updatePlay, Qt::QueuedConnection);
}

/// The conversation of one play() or one poll.
SequencePlayer::PlayCall SequencePlayer::beginCall()
{
    return PlayCall({m_protocol, static_cast<std::uint8_t>(m_node), m_run.token()}, *this);
}

void SequencePlayer::poll(PlayCall& call)
{
    const qint64 now = nowMs();
    if (!areCurrentsSafe(call) || !haveFingersArrived(call))
        return;
    if (m_preparing) {
        setupVanto(m_playingIndex, false, call);
        return;
    }
    if (m_data.sequences.at(m_playingIndex).delay > now - m_stepStart)
        return;
    const int next = m_playingIndex + 1;
    if (next < m_endIndex)
        setupVanto(next, false, call);
    else if (!m_playForEdit && (m_rounds == 0 || m_round < m_rounds))
        startNextRound(call);
    else
        _stop({});
}

void SequencePlayer::startNextRound(PlayCall& call)
{
    m_round = m_round < std::numeric_limits<int>::max() ? m_round + 1 : 1;
    setupVanto(m_startIndex, false, call);
}

const MotionUnit& SequencePlayer::unit() const
{
    return m_data.position_type == SequenceData::POS_TYPE_POSITION ? MotionUnit::position()
                                                                   : MotionUnit::angle();
}

bool SequencePlayer::setupVanto(int sequenceIndex, bool prepare, PlayCall& call)
{
    const qint64 previousStart = m_stepStart;
    m_playingIndex = sequenceIndex;
    m_preparing = prepare;
    m_stepStart = nowMs();
    const MotionUnit& moved = prepare ? MotionUnit::position() : unit();
    const SequenceDataItem step = prepare ? preparationPose() : m_data.sequences.at(sequenceIndex);
    if (!prepare) {
        emit sig_updatePlaying(isPlaying(), sequenceIndex, m_stepStart - previousStart, {});
        call.reportStep(sequenceIndex);
    }

    // A failure stops the player, but the commands for the other fingers are still sent.
    bool allSent = true;
    const auto count = std::min({step.position.size(), step.speed.size(), qsizetype{FingerCount}});
    for (std::uint8_t finger = 0; finger < count && call.isCurrent(); ++finger)
        allSent &= moved.move(call, finger, step.position[finger],
                              static_cast<std::uint8_t>(step.speed[finger]));
    return allSent && call.isCurrent();
}

bool SequencePlayer::areCurrentsSafe(PlayCall& call)
{
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        std::uint16_t current = 0;
        if (!call.perform<&VantoProtocol::getFingerCurrent>(finger, &current))
            return false;
        emit sig_currentRead(finger, current);
        if (MotionGuard::isOverCurrent(current)) {
            _stop(MotionGuard::overCurrentText(finger, current));
            return false;
        }
    }
    return true;
}

bool SequencePlayer::haveFingersArrived(PlayCall& call)
{
    const auto pose = unit().readPose(call);
    return pose &&
           std::ranges::equal(pose->targets, pose->currents, [this](int target, int current) {
               return MotionGuard::hasArrived(unit(), target, current);
           });
}

bool SequencePlayer::reportTimeout(const HandTarget&)
{
    _stop(tr("TIME OUT"));
    return true;
}

void SequencePlayer::reportFailure(const HandTarget& target, std::string_view operation,
                                   std::uint8_t result, std::uint8_t subError)
{
    const auto name = QString::fromLatin1(operation.data(), qsizetype(operation.size()));
    emit sig_refused(name, result, subError);
    _stop(_getErrorMsg(name, target.node, result, subError));
}

void SequencePlayer::reportHalted()
{
    _stop(tr("Halted. Press Continue."));
}

void SequencePlayer::_stop(const QString& errMsg)
{
    m_timer.stop();
    emit sig_updatePlaying(false, m_playingIndex, nowMs() - m_stepStart, errMsg);
}

QString SequencePlayer::_getErrorMsg(const QString& functionName, std::uint8_t node,
                                     std::uint8_t result, std::uint8_t subError)
{
    return tr("%1(0x%2, ...) returned 0x%3 (sub err %4)")
        .arg(functionName, hex(node), hex(result), hex(subError));
}

} // namespace vanto
