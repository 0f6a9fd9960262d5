#include "playpeaks.h"

#include "sequenceplayer.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace vanto
{

QJsonObject StepPeaks::toJson() const
{
    QJsonArray highest;
    for (const int current : currents)
        highest.append(current);
    return {{QStringLiteral("step"), step + 1},
            {QStringLiteral("milliseconds"), milliseconds},
            {QStringLiteral("highestCurrent"), highest}};
}

PeakCollector::PeakCollector(SequencePlayer* player) : QObject(player), m_player(player)
{
    connect(player, &SequencePlayer::sig_updatePlaying, this, &PeakCollector::noteStep);
    connect(player, &SequencePlayer::sig_currentRead, this, &PeakCollector::noteCurrent);
}

/// A run is playing once its first step has been sent completely.
void PeakCollector::noteStep(bool isPlaying, int index, qint64 milliseconds)
{
    if (m_player->isPlayForEdit() || (!m_running && !isPlaying))
        return;
    const bool isFirst = !std::exchange(m_running, isPlaying);
    StepPeaks ended = std::exchange(m_peaks, {});
    m_peaks.step = index;
    if (isFirst) {
        emit sig_started();
        return;
    }
    ended.milliseconds = milliseconds;
    emit sig_stepEnded(ended);
}

void PeakCollector::noteCurrent(std::uint8_t finger, std::uint16_t current)
{
    m_peaks.currents.at(finger) = std::max(m_peaks.currents.at(finger), int{current});
}

} // namespace vanto
