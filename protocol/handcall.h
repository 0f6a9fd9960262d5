#pragma once

#include "conversation.h"
#include "generation.h"
#include "linemonitor.h"
#include "motiongate.h"
#include "vantoprotocol.h"

#include <functional>
#include <string_view>

namespace vanto
{

/// The hand that was open when a request was made.
struct HandTarget {
    std::shared_ptr<VantoProtocol> adapter;
    std::uint8_t node = 0;
    Generation::Token token;

    /// Whether the connection has been neither changed nor stopped since the request was made.
    bool isCurrent() const { return token.isCurrent(); }
};

/// Reserves the line for one conversation: while it exists, timers skip their ticks and requests
/// wait. See Conversation for the restrictions.
class LineHold
{
private:
    Conversation m_conversation;
};

/// Receives the failures of a conversation.
class CallReport
{
public:
    virtual ~CallReport() = default;

    /// Reports a time-out. Returns false if it must be reported like any other failure.
    virtual bool reportTimeout(const HandTarget& target) = 0;
    /// `operation` is a name like "setFingerPos".
    virtual void reportFailure(const HandTarget& target, std::string_view operation,
                               std::uint8_t result, std::uint8_t subError) = 0;
    /// An operation that moves a finger has been refused, because the hand has been halted.
    virtual void reportHalted() {}
};

/// The name of an operation of VantoProtocol, given by its member pointer.
template<auto Operation>
constexpr std::string_view operationName()
{
    constexpr std::string_view scope = "VantoProtocol::";
    std::string_view name = __PRETTY_FUNCTION__;
    name.remove_prefix(name.find(scope) + scope.size());
    return name.substr(0, name.find_first_of(";]"));
}

/// One conversation with one hand. All calls to its adapter are made through this class.
///
///     HandCall call(target, report);
///     if (call.perform<&VantoProtocol::setFingerPos>(finger, position, speed))
///         ...
///
/// Once the target is no longer current, or while a halt is in progress, nothing is sent or
/// reported.
class HandCall : public LineHold
{
public:
    HandCall(HandTarget target, CallReport& report) : m_target(std::move(target)), m_report(&report)
    {
    }
    /// Creates a call without a report; only attempt() may be used.
    explicit HandCall(HandTarget target) : m_target(std::move(target)) {}

    const HandTarget& target() const { return m_target; }
    bool isCurrent() const
    {
        return m_target.isCurrent() &&
               (m_halts || MotionGate::state() != MotionGate::State::Closed);
    }

    /// Calls the operation and reports a failure. Returns true on success; only then are the
    /// outputs valid.
    template<auto Operation, class... Arguments>
    bool perform(Arguments... arguments)
    {
        return accept<Operation>(attempt<Operation>(arguments...));
    }

    /// Calls the operation without a report and returns the result code.
    template<auto Operation, class... Arguments>
    std::uint8_t attempt(Arguments... arguments)
    {
        if (!isCurrent())
            return NotSent;
        if constexpr (MotionGate::isMotion(operationName<Operation>())) {
            m_refused = !m_halts && MotionGate::state() == MotionGate::State::Latched;
            if (m_refused)
                return NotSent;
        }
        const std::uint8_t result =
            std::invoke(Operation, *m_target.adapter, m_target.node, arguments...);
        noteResult(result);
        return result;
    }

    /// Whether the last operation has been refused because the hand has been halted.
    bool wasRefused() const { return m_refused; }
    /// Reports `result` if it is a failure. Returns true on success, if the target is current.
    bool accept(std::string_view operation, std::uint8_t result);
    template<auto Operation>
    bool accept(std::uint8_t result)
    {
        return accept(operationName<Operation>(), result);
    }
    /// The hand's own error byte for its most recent exchange.
    std::uint8_t subError() { return m_target.adapter->getNodeError(m_target.node); }

protected:
    /// Whether the call belongs to a halt, or ends one.
    bool m_halts = false;

private:
    static constexpr std::uint8_t NotSent = 0xFF;

    void noteResult(std::uint8_t result) const;

    HandTarget m_target;
    CallReport* m_report = nullptr;
    bool m_refused = false; ///< the last operation, by the gate
};

} // namespace vanto
