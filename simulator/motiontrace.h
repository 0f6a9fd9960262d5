#pragma once

#include "hand.h"
#include "trace.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <cstdint>
#include <vector>

namespace vanto::simulator
{

/// Writes to the trace when a finger begins to move, changes its velocity, stands or is placed
/// elsewhere, and when a hand gets another id. Between two lines of a hand the positions are linear
/// in time. The time of a line is that of the change, also if the line is written later. Does
/// nothing without a trace file.
class MotionTrace : public QObject
{
    Q_OBJECT

public:
    explicit MotionTrace(Trace& trace, QObject* parent = nullptr);

    void add(const Hand& hand);
    /// Must be called after everything that can change a motion, and is called by a timer at the
    /// end of every motion.
    void update(TimePoint now);

private:
    using Motions = std::array<FingerMotion, FingerCount>;
    struct Watch {
        const Hand* hand;
        Motions motions; ///< as of `since`
        TimePoint since;
        std::uint8_t id; ///< of the last line
    };

    /// Returns the next arrival after `now`.
    TimePoint updateHand(Watch& watch, TimePoint now);
    void write(const Watch& watch, TimePoint time);

    Trace& m_trace;
    std::vector<Watch> m_watches;
    QTimer m_timer;
};

} // namespace vanto::simulator
