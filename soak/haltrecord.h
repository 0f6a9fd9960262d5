#pragma once

#include "handprocess.h"

#include <QStringList>

#include <vector>

namespace vanto
{

/// The moments of one halt, in ms of the hand's clock.
struct HaltMoments {
    double press = 0;
    double halted = 0;
    double secondPress = 0; ///< of a click that came too early for Continue; 0 if there was none
    double secondHalted = 0;
    double proceed = 0; ///< the click on Continue
    double end = 0;     ///< until then nothing may move by itself
};

/// What the trace of the hand says about one halt.
struct HaltRecord {
    HaltRecord(const HandProcess& hand, int node, const HaltMoments& moments);

    double firstFrameMs = 0; ///< from the press to the first frame of the halt
    bool wasMoving = false;  ///< after the press
    double standMs = 0;      ///< from the press to the end of all motion
    double drift = 0;        ///< longest motion of a finger after "Halted", in ticks
    double arrival = 0;      ///< longest one of a finger that only reaches its target, in ticks
    int lateFrames = 0;      ///< frames after the press that are not the halt's
    QStringList findings;

private:
    void readFrames(const HandProcess& hand, const HaltMoments& moments);
    void readMotion(const QList<MotionMark>& marks, int node, double from, double to);

    QList<int> m_goals; ///< the targets that the halt has written
};

/// The figures of a campaign.
class HaltTotals
{
public:
    void add(const HaltRecord& record, const HaltMoments& moments);
    QString text() const;

private:
    std::vector<double> m_firstFrames;
    std::vector<double> m_stands; ///< of hands that were moving
    std::vector<double> m_halted;
    int m_lateFrames = 0;
    double m_drift = 0;
    double m_arrival = 0;
};

} // namespace vanto
