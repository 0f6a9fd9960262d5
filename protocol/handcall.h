#pragma once

#include "actionmonitor.h"
#include "conversation.h"
#include "fingers.h"
#include "generation.h"
#include "linemonitor.h"
#include "motiongate.h"
#include "readingmonitor.h"
#include "vantoprotocol.h"

#include <functional>
#include <string_view>
#include <type_traits>

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
               (isHalt() || MotionGate::state() != MotionGate::State::Closed);
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
            m_refused = !isHalt() && MotionGate::state() == MotionGate::State::Latched;
            if (m_refused)
                return NotSent;
        }
        const std::uint8_t result =
            std::invoke(Operation, *m_target.adapter, m_target.node, arguments...);
        noteResult(result);
        if (result == ResultCode::Success)
            publish<Operation>(arguments...);
        return result;
    }

    /// Marks the conversation as one that others do not have to wait for: their ticks follow at
    /// once when it ends.
    static void setBackground() { Conversation::setBackground(); }

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
    /// On whose behalf the hand is called. Halt: the call belongs to a halt, or ends one.
    HandAction::Origin m_origin = HandAction::Origin::Request;

    /// Reports to ActionMonitor, if the target is current.
    void report(HandAction action) const;

private:
    static constexpr std::uint8_t NotSent = 0xFF;

    bool isHalt() const { return m_origin == HandAction::Origin::Halt; }
    void noteResult(std::uint8_t result) const;

    /// Reports measured values to ReadingMonitor, and what the hand does to ActionMonitor.
    template<auto Operation, class... Arguments>
    void publish(Arguments... arguments) const
    {
        constexpr std::string_view name = operationName<Operation>();
        if constexpr (name == "getFingerCurrent")
            publishFinger(Quantity::Current, arguments...);
        else if constexpr (name == "getFingerForce")
            publishForce(arguments...);
        else if constexpr (name == "getFingerPos")
            publishFinger(Quantity::Position, arguments...);
        else if constexpr (name == "getFingerAngle")
            publishFinger(Quantity::Angle, arguments...);
        else if constexpr (name == "getFingerPosAll")
            publishAll(Quantity::Position, arguments...);
        else if constexpr (name == "getFingerAngleAll")
            publishAll(Quantity::Angle, arguments...);
        else if constexpr (name == "getFingerCurrentLimit")
            publishCurrentLimit(arguments...);
        else if constexpr (name == "setFingerPos" || name == "setFingerPosAll")
            publishTargets(name, Quantity::Position, arguments...);
        else if constexpr (name == "setFingerAngle" || name == "setFingerAngleAll")
            publishTargets(name, Quantity::Angle, arguments...);
        else if constexpr (!name.starts_with("get"))
            publishOperation(name, arguments...);
    }
    template<class Value>
    void publishFinger(Quantity quantity, std::uint8_t finger, const Value* current) const
    {
        publishValues(quantity, finger, current, 1);
    }
    template<class Value>
    void publishFinger(Quantity quantity, std::uint8_t finger, const Value* /*target*/,
                       const Value* current) const
    {
        publishValues(quantity, finger, current, 1);
    }
    void publishForce(std::uint8_t finger, const std::uint16_t* forces, std::uint8_t count) const
    {
        publishValues(Quantity::Force, finger, forces, count > 0 ? 1 : 0);
    }
    template<class Value>
    void publishAll(Quantity quantity, const Value* /*targets*/, const Value* currents,
                    std::uint8_t count) const
    {
        publishValues(quantity, 0, currents, count);
    }
    template<class Value>
    void publishValues(Quantity quantity, std::uint8_t firstFinger, const Value* values,
                       std::size_t count) const
    {
        if (!values || count == 0 || count > FingerCount)
            return;
        PerFinger<std::int32_t> copy{};
        for (std::size_t i = 0; i < count; ++i)
            copy[i] = values[i];
        report(Reading{m_target.node, m_target.token, quantity, firstFinger,
                       std::span(copy).first(count)});
    }
    void publishCurrentLimit(std::uint8_t finger, const std::uint16_t* limit) const
    {
        report(LimitReading{m_target.node, m_target.token, finger, *limit});
    }
    void publishTargets(std::string_view operation, Quantity quantity, std::uint8_t finger,
                        int target, std::uint8_t /*speed*/) const
    {
        reportTarget(operation, quantity, finger, target);
    }
    template<class Value>
    void publishTargets(std::string_view operation, Quantity quantity, const Value* targets,
                        const std::uint8_t* /*speeds*/, std::uint8_t count) const
    {
        for (std::uint8_t finger = 0; finger < count; ++finger)
            reportTarget(operation, quantity, finger, targets[finger]);
    }
    template<class... Arguments>
    void publishOperation(std::string_view operation, Arguments... arguments) const
    {
        std::array<double, sizeof...(Arguments) + 1> numbers{};
        std::size_t count = 0;
        [[maybe_unused]] const auto add = [&](auto argument) {
            if constexpr (std::is_arithmetic_v<decltype(argument)>)
                numbers[count++] = static_cast<double>(argument);
        };
        (add(arguments), ...);
        reportOperation(operation, std::span(numbers).first(count));
    }
    void report(const Reading& reading) const;
    void report(const LimitReading& reading) const;
    void reportTarget(std::string_view operation, Quantity quantity, std::uint8_t finger,
                      int target) const;
    void reportOperation(std::string_view operation, std::span<const double> numbers) const;

    HandTarget m_target;
    CallReport* m_report = nullptr;
    bool m_refused = false; ///< the last operation, by the gate
};

} // namespace vanto
