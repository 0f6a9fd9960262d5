#pragma once

#include "handcall.h"

#include <QObject>

#include <functional>

namespace vanto
{

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow" // GCC 12 compares enumerators with the constant AnyNode
/// How a task has ended.
enum class HandTaskOutcome {
    Running,
    Completed,
    Cancelled,
    NoAnswer,   ///< as many time-outs in a row as the task accepts
    PortLost,   ///< the port has vanished
    Superseded, ///< the target is stale: closed, halted, another hand requested
    OtherHand,  ///< another hand than before answers
    AnyNode     ///< node 255 of SerialCtrl, which every hand obeys (tasks that write)
};
#pragma GCC diagnostic pop

/// A longer piece of work with a hand in short steps, each one conversation, so that requests of
/// the user, ticks and a halt get the line between them.
///
/// The caller performs the steps: a program without a window by run(), a window by a
/// HandTaskRunner. Nothing is reported to a CallReport; see the outcome and the results.
class HandTask
{
public:
    using Outcome = HandTaskOutcome;
    /// Called after each step, outside of conversations; it may process events and call cancel().
    using Progress = std::function<void(int done, int total)>;

    virtual ~HandTask();
    HandTask(const HandTask&) = delete;
    HandTask& operator=(const HandTask&) = delete;

    const HandTarget& target() const { return m_target; }
    bool isRunning() const { return m_outcome == Outcome::Running; }
    Outcome outcome() const { return m_outcome; }
    /// For the user, translated, one sentence; empty while running and if completed.
    QString outcomeText() const;
    int stepsDone() const { return m_done; }
    virtual int stepCount() const = 0;

    /// Performs the next step. Processes events meanwhile; a nested call does nothing. Must not be
    /// called while a conversation is active. Do not destroy the task during a step.
    void step();
    bool isInStep() const { return m_inStep; }
    /// Performs all steps.
    Outcome run(const Progress& progress = {});
    /// Ends after the present step.
    void cancel();

protected:
    /// `timeoutsInARow`: so many end the task.
    static constexpr int TimeoutsInARow = 2;    ///< unless a task accepts fewer
    static constexpr int MaxDamagedReplies = 3; ///< to the same request; some firmware never fits

    HandTask(HandTarget target, int timeoutsInARow);

    /// Performs the step of this number.
    virtual void perform(int step) = 0;
    void finish(Outcome outcome);
    /// Notes the result of an operation: counts time-outs, and ends the task if the port is lost,
    /// the target stale or the hand silent. Returns whether the task goes on.
    bool note(const HandCall& call, std::uint8_t result);
    /// Like note(), for a read that is a step. Returns whether it has an end, good or bad;
    /// otherwise the task has ended, or the step is repeated because the reply was late or damaged.
    bool noteRead(const HandCall& call, std::uint8_t result);
    /// The present step is not done yet: perform() is called again with the same number.
    void repeatStep() { m_repeat = true; }

private:
    HandTarget m_target;
    QObject m_context; ///< of the connections
    Outcome m_outcome = Outcome::Running;
    int m_done = 0;
    int m_timeouts = 0;       ///< in a row
    int m_damagedReplies = 0; ///< in the present step
    int m_timeoutsInARow;
    bool m_inStep = false;
    bool m_repeat = false;
    bool m_cancelled = false;
    bool m_portLost = false;
};

} // namespace vanto
