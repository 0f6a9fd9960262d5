#pragma once

#include "handprocess.h"

#include <QHash>

namespace vanto
{

/// Recognises the requests of a halt in the trace of a simulated hand: stop, read all positions,
/// and write all positions with speed 1.
class HaltFrames
{
public:
    /// Whether the request can be one of a halt. All requests must be passed, in their order: over
    /// Modbus targets belong to a halt only if all speeds were set to 1 before.
    bool accept(const TracedFrame& request);
    /// The logical positions if the request writes those of all fingers, otherwise empty.
    static QList<int> goals(const TracedFrame& request);
    /// Whether the request moves a finger.
    static bool isMotion(const TracedFrame& request);

private:
    bool acceptModbus(const TracedFrame& request);

    QHash<int, bool> m_slow; ///< by node: whether the speeds last written were all 1
};

/// The end of the last motion from `from` to `to` that is faster than speed 1 moves a finger;
/// `from` if there is none. Times are in ms.
double standsFrom(const QList<MotionMark>& marks, int node, double from, double to);
/// For each finger the longest distance from its place at `from` until `to`, in ticks.
QList<double> longestDrifts(const QList<MotionMark>& marks, int node, double from, double to);

} // namespace vanto
