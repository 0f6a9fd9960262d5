#pragma once

#include "fingers.h"

#include <QObject>

class QJsonObject;

namespace vanto
{

class SequencePlayer;

/// The duration of a step that has been played, and the highest current that each finger drew
/// meanwhile.
struct StepPeaks {
    int step = 0; ///< index in the sequence
    qint64 milliseconds = 0;
    PerFinger<int> currents{}; ///< mA

    /// Contains "step", counted from 1, "milliseconds" and "highestCurrent".
    QJsonObject toJson() const;
};

/// Collects the peaks of each step from what the player reads during a run. Steps that are only
/// sent, or played for edit, have none.
class PeakCollector : public QObject
{
    Q_OBJECT
public:
    explicit PeakCollector(SequencePlayer* player);

signals:
    /// A run plays its first step.
    void sig_started();
    /// A step has ended, because the next one begins or the run has stopped.
    void sig_stepEnded(const vanto::StepPeaks& peaks);

private:
    void noteStep(bool isPlaying, int index, qint64 milliseconds);
    void noteCurrent(std::uint8_t finger, std::uint16_t current);

    SequencePlayer* m_player;
    bool m_running = false;
    StepPeaks m_peaks; ///< of the present step
};

} // namespace vanto
