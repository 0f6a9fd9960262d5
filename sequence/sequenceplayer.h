#pragma once

#include "handcall.h"
#include "sequencedata.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace vanto
{

class MotionUnit;

/// Plays a sequence on one hand: sends a step, polls until all fingers have arrived and the step's
/// delay has run out, goes on to the next. Stops at the end, at a failure of the hand, and when a
/// finger draws too much current.
///
/// Every call of the hand processes events while it waits, so stop() can come in the middle of
/// play(), a poll or a step that is being sent, and stop() and play() from a signal between two of
/// its calls. Each run is a generation of its own: a call for an earlier one sends and reports
/// nothing.
class SequencePlayer : public QObject, private CallReport
{
    Q_OBJECT
public:
    explicit SequencePlayer(QObject* parent = nullptr);

    /// Does not stop a run: a poll that is under way ends on the hand that it began with, the next
    /// one asks the new hand.
    void setVantoProtocol(std::shared_ptr<VantoProtocol> protocol, int node);

    /// Plays the steps from `startIndex` to before `endIndex`, or to the last one if that is
    /// negative. With `playForEdit` the fingers but the thumb root are stretched first. If both
    /// indices are the same the step is sent, and only when playing for edit waited for.
    /// False when it is playing already or an exchange is under way, there is no hand or no such
    /// step, when the first step could not be sent whole or stop() came meanwhile; then it does not
    /// play.
    bool play(const SequenceData& data, int startIndex, int endIndex, bool playForEdit);
    /// From here on nothing more is sent, whatever is under way. Told by the signal if it played.
    void stop();

    bool isPlaying() const { return m_timer.isActive(); }
    /// Whether a step is being sent or a poll is under way; after a failure, too, when the other
    /// fingers are still sent.
    bool isSending() const { return m_sending; }
    int getPlayingSequenceIndex() const { return m_playingIndex; }
    /// Of the last play().
    bool isPlayForEdit() const { return m_playForEdit; }

public slots:
    /// One poll. Skipped while another conversation is under way. A poll that takes longer than the
    /// timer's interval is followed by the next one at once.
    void updatePlay();

signals:
    /// A poll in which the play has stopped is over; nothing is being sent any more.
    void sig_ended();
    /// `periodInMS` is the time since the previous step was sent, or at a stop since the present
    /// one was. `errMsg` is why it stopped, empty at the end and when somebody stopped it.
    void sig_updatePlaying(bool isPlaying, int sequenceIndex, qint64 periodInMS, QString errMsg);

private:
    HandCall beginCall();
    void poll(HandCall& call);
    const MotionUnit& unit() const;
    /// Sends a step, or the pose before it. False when not all of it was sent.
    bool setupVanto(int sequenceIndex, bool prepare, HandCall& call);
    bool currentsAreSafe(HandCall& call);
    bool haveArrived(HandCall& call);
    bool reportTimeout(const HandTarget& target) override;
    void reportFailure(const HandTarget& target, std::string_view operation, quint8 result,
                       quint8 subError) override;
    void _stop(const QString& errMsg);
    static QString _getErrorMsg(const QString& functionName, quint8 node, quint8 result,
                                quint8 subError);

    std::shared_ptr<VantoProtocol> m_protocol;
    int m_node = 0;
    SequenceData m_data; ///< a copy, so that edits do not reach what is played
    QTimer m_timer;
    bool m_sending = false; ///< one of its own exchanges may be under way
    Generation m_run;       ///< advanced by every play() and stop()
    int m_playingIndex = 0;
    int m_endIndex = 0;
    qint64 m_stepStart = 0; ///< ms since the epoch
    bool m_playForEdit = false;
    bool m_preparing = false;
};

} // namespace vanto
