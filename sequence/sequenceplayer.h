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
/// delay has elapsed, then sends the next step. Stops at the end, on a failure of the hand, and
/// when a finger draws too much current.
///
/// Every exchange with the hand processes events while it waits, so stop() can be called during
/// play(), a poll or the sending of a step, and slots can call stop() and play() between two
/// exchanges. Each run has its own generation: a call for an earlier run sends and reports nothing.
class SequencePlayer : public QObject, private CallReport
{
    Q_OBJECT
public:
    explicit SequencePlayer(QObject* parent = nullptr);

    /// Does not stop a run: a poll in progress continues with the previous hand, the next poll uses
    /// the new one.
    void setVantoProtocol(std::shared_ptr<VantoProtocol> protocol, int node);

    /// Plays the steps from `startIndex` up to, but not including, `endIndex`; up to the last one
    /// if that is negative. With `playForEdit` all fingers but the thumb root are stretched first.
    /// If both indices are equal, one step is sent; the player waits for it only with
    /// `playForEdit`. Returns false, and does not play, if a run or an exchange is in progress, if
    /// no hand has been set, if the step does not exist, if the first step could not be sent
    /// completely, or if stop() was called meanwhile.
    bool play(const SequenceData& data, int startIndex, int endIndex, bool playForEdit);
    /// How often the following runs of several steps are played; 0 for without end. 1 at first.
    void setRounds(int rounds) { m_rounds = rounds; }
    int rounds() const { return m_rounds; }
    /// The current round, from 1.
    int round() const { return m_round; }
    /// Sends nothing more, whatever is in progress. Emits sig_updatePlaying() if a run was playing.
    void stop();

    bool isPlaying() const { return m_timer.isActive(); }
    /// Whether a step is being sent or a poll is in progress; also after a failure, while commands
    /// for the other fingers are still being sent.
    bool isSending() const { return m_sending; }
    int getPlayingSequenceIndex() const { return m_playingIndex; }
    /// The argument of the last play().
    bool isPlayForEdit() const { return m_playForEdit; }

public slots:
    /// Polls once. Skipped while another conversation is in progress. A poll that takes longer than
    /// the interval of the timer is followed by the next one at once.
    void updatePlay();

signals:
    /// A poll has read the current of a finger, in mA.
    void sig_currentRead(std::uint8_t finger, std::uint16_t current);
    /// An operation has failed, other than by a time-out; the run stops.
    void sig_refused(const QString& operation, std::uint8_t result, std::uint8_t subError);
    /// The poll in which the run stopped has ended; nothing is being sent any more.
    void sig_ended();
    /// `periodInMS` is the time since the previous step was sent or, on a stop, since the current
    /// one was. `errMsg` is the reason of a stop, empty at the end and after stop().
    void sig_updatePlaying(bool isPlaying, int sequenceIndex, qint64 periodInMS, QString errMsg);

private:
    class PlayCall;

    PlayCall beginCall();
    void poll(PlayCall& call);
    void startNextRound(PlayCall& call);
    const MotionUnit& unit() const;
    /// Sends a step, or the preparation pose. Returns false if not all of it was sent.
    bool setupVanto(int sequenceIndex, bool prepare, PlayCall& call);
    bool areCurrentsSafe(PlayCall& call);
    bool haveFingersArrived(PlayCall& call);
    bool reportTimeout(const HandTarget& target) override;
    void reportFailure(const HandTarget& target, std::string_view operation, std::uint8_t result,
                       std::uint8_t subError) override;
    void reportHalted() override;
    void _stop(const QString& errMsg);
    static QString _getErrorMsg(const QString& functionName, std::uint8_t node, std::uint8_t result,
                                std::uint8_t subError);

    std::shared_ptr<VantoProtocol> m_protocol;
    int m_node = 0;
    SequenceData m_data; ///< a copy, so that edits do not affect the run
    QTimer m_timer;
    bool m_missedTick = false; ///< because of a background conversation
    bool m_sending = false;    ///< one of its own exchanges may be in progress
    Generation m_run;          ///< advanced by every play() and stop()
    int m_playingIndex = 0;
    int m_startIndex = 0;
    int m_endIndex = 0;
    int m_rounds = 1;
    int m_round = 1;
    qint64 m_stepStart = 0; ///< ms since the epoch
    bool m_playForEdit = false;
    bool m_preparing = false;
};

} // namespace vanto
