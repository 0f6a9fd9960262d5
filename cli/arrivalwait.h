#pragma once

#include "fingers.h"
#include "tool.h"

#include <QElapsedTimer>

#include <functional>

namespace vanto
{

/// Waits until fingers have arrived. Halts the hand when a finger draws too much current, and fails
/// if the fingers stop before they reach their targets.
class ArrivalWait
{
public:
    /// One finger on its way; all in one unit.
    struct Way {
        std::uint8_t finger = 0;
        int target = 0;
        int current = 0;
        bool hasArrived = false;
    };
    /// Reads the fingers; nothing if that has failed, which has been reported.
    using Read = std::function<std::optional<QList<Way>>()>;

    ArrivalWait(Tool& tool, Answer& answer) : m_tool(tool), m_answer(answer) {}

    /// Returns whether the fingers have arrived. Must not be called in a conversation, which would
    /// delay a halt.
    bool run(const Read& read);
    /// Adds the duration and the highest current of each finger to the answer.
    void writeResult();

private:
    bool readCurrents();
    bool areStandingStill(const QList<Way>& ways);

    Tool& m_tool;
    Answer& m_answer;
    qint64 m_milliseconds = 0;
    PerFinger<int> m_highest{};         ///< mA
    PerFinger<std::optional<int>> m_at; ///< where the fingers were when they moved last
    QElapsedTimer m_still;              ///< since then
};

} // namespace vanto
