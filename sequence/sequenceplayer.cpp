#include "sequenceplayer.h"

#include "conversation.h"
#include "fingers.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QScopedValueRollback>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace
{
constexpr int PollIntervalMs = 10;
constexpr int CurrentLimitMa = 79;  ///< a finger that draws more is stopped
constexpr int PositionWindow = 256; ///< in logical positions
constexpr int AngleWindow = 6;      ///< in hundredths of a degree
constexpr int StretchedFingers = 5; ///< by the preparation pose: all but the thumb root
constexpr int StretchedPosition = 0;
constexpr int FullSpeed = 255;

constexpr PerFinger<const char*> FingerNames{QT_TRANSLATE_NOOP("SequencePlayer", "Thumb"),
                                             QT_TRANSLATE_NOOP("SequencePlayer", "Index"),
                                             QT_TRANSLATE_NOOP("SequencePlayer", "Middle"),
                                             QT_TRANSLATE_NOOP("SequencePlayer", "Third"),
                                             QT_TRANSLATE_NOOP("SequencePlayer", "Little"),
                                             QT_TRANSLATE_NOOP("SequencePlayer", "Thumb root")};

qint64 nowMs()
{
    return QDateTime::currentMSecsSinceEpoch();
}

SequenceDataItem preparationPose()
{
    return {QList<int>(StretchedFingers, StretchedPosition),
            QList<int>(StretchedFingers, FullSpeed), 0};
}

template<class T>
bool allWithin(int window, const PerFinger<T>& targets, const PerFinger<T>& currents)
{
    return std::ranges::equal(targets, currents, [window](int target, int current) {
        return std::abs(target - current) <= window;
    });
}

QString hex(unsigned number)
{
    return QStringLiteral("%1").arg(number, 2, 16, QLatin1Char('0'));
}
} // namespace

SequencePlayer::SequencePlayer(QObject* parent) : QObject(parent)
{
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(PollIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &SequencePlayer::updatePlay);
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
    const Conversation conversation;
    const QScopedValueRollback sending(m_sending, true);
    ++m_run;
    m_playForEdit = playForEdit;
    m_endIndex = endIndex < 0 ? count : std::min(endIndex, count);
    m_data = data;
    m_stepStart = nowMs();
    const bool onlySend = !playForEdit && m_endIndex == startIndex;
    if (!setupVanto(startIndex, playForEdit, beginTurn()))
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
    ++m_run;
    if (m_sending)
        Exchange::abandon();
    if (isPlaying())
        _stop({});
}

void SequencePlayer::updatePlay()
{
    if (!isPlaying() || Conversation::busy())
        return;
    if (!m_protocol) {
        _stop(tr("No VANTO"));
        return;
    }
    const QDeadlineTimer nextBeat(PollIntervalMs, Qt::PreciseTimer);
    {
        const Conversation conversation;
        const QScopedValueRollback sending(m_sending, true);
        poll(beginTurn());
    }
    if (!isPlaying()) {
        emit sig_ended();
        return;
    }
    // The beats that fell into a long poll are lost. Posted after the end of the conversation, so
    // that whoever waited for it comes first.
    if (nextBeat.hasExpired())
        QMetaObject::invokeMethod(this, &SequencePlayer::updatePlay, Qt::QueuedConnection);
}

void SequencePlayer::poll(const Turn& turn)
{
    const qint64 now = nowMs();
    if (!currentsAreSafe(turn) || !haveArrived(turn))
        return;
    if (m_preparing) {
        setupVanto(m_playingIndex, false, turn);
        return;
    }
    if (m_data.sequences.at(m_playingIndex).delay > now - m_stepStart)
        return;
    const int next = m_playingIndex + 1;
    if (next < m_endIndex)
        setupVanto(next, false, turn);
    else
        _stop({});
}

bool SequencePlayer::inPositionMode() const
{
    return m_data.position_type == SequenceData::POS_TYPE_POSITION;
}

bool SequencePlayer::setupVanto(int sequenceIndex, bool prepare, const Turn& turn)
{
    const qint64 previousStart = m_stepStart;
    m_playingIndex = sequenceIndex;
    m_preparing = prepare;
    m_stepStart = nowMs();
    const bool byPosition = prepare || inPositionMode();
    const SequenceDataItem step = prepare ? preparationPose() : m_data.sequences.at(sequenceIndex);
    if (!prepare)
        emit sig_updatePlaying(isPlaying(), sequenceIndex, m_stepStart - previousStart, {});

    // A failure stops the player, but the other fingers are sent for all that.
    bool good = true;
    const auto count = std::min({step.position.size(), step.speed.size(), qsizetype{FingerCount}});
    for (quint8 finger = 0; finger < count && wanted(turn); ++finger) {
        const int target = step.position[finger];
        const auto speed = static_cast<quint8>(step.speed[finger]);
        good &= byPosition
                    ? succeeded("setFingerPos",
                                turn.protocol->setFingerPos(turn.node, finger,
                                                            static_cast<quint16>(target), speed),
                                turn)
                    : succeeded("setFingerAngle",
                                turn.protocol->setFingerAngle(turn.node, finger,
                                                              static_cast<qint16>(target), speed),
                                turn);
    }
    return good && wanted(turn);
}

bool SequencePlayer::currentsAreSafe(const Turn& turn)
{
    for (quint8 finger = 0; finger < FingerCount; ++finger) {
        quint16 current = 0;
        if (!succeeded("getFingerCurrent",
                       turn.protocol->getFingerCurrent(turn.node, finger, &current), turn))
            return false;
        if (current > CurrentLimitMa) {
            _stop(tr("%s has too big current: %d mA")
                      .replace(QLatin1String("%s"), tr(FingerNames.at(finger)))
                      .replace(QLatin1String("%d"), QString::number(current)));
            return false;
        }
    }
    return true;
}

bool SequencePlayer::haveArrived(const Turn& turn)
{
    constexpr auto count = static_cast<quint8>(FingerCount);
    if (inPositionMode()) {
        PerFinger<quint16> targets{};
        PerFinger<quint16> currents{};
        return succeeded("getFingerPosAll",
                         turn.protocol->getFingerPosAll(turn.node, targets.data(), currents.data(),
                                                        count),
                         turn) &&
               allWithin(PositionWindow, targets, currents);
    }
    PerFinger<qint16> targets{};
    PerFinger<qint16> currents{};
    return succeeded(
               "getFingerAngleAll",
               turn.protocol->getFingerAngleAll(turn.node, targets.data(), currents.data(), count),
               turn) &&
           allWithin(AngleWindow, targets, currents);
}

bool SequencePlayer::succeeded(const char* functionName, quint8 result, const Turn& turn)
{
    if (!wanted(turn))
        return false;
    if (result == ResultCode::Success)
        return true;
    const QString message = _getErrorMsg(QLatin1String(functionName), result, turn);
    if (wanted(turn))
        _stop(message);
    return false;
}

void SequencePlayer::_stop(const QString& errMsg)
{
    m_timer.stop();
    emit sig_updatePlaying(false, m_playingIndex, nowMs() - m_stepStart, errMsg);
}

QString SequencePlayer::_getErrorMsg(const QString& functionName, quint8 result, const Turn& turn)
{
    if (result == ResultCode::Timeout)
        return tr("TIME OUT");
    const quint8 subError = turn.protocol->getNodeError(turn.node);
    return tr("%1(0x%2, ...) returned 0x%3 (sub err %4)")
        .arg(functionName, hex(turn.node), hex(result), hex(subError));
}
