#pragma once

#include "conversation.h"
#include "generation.h"
#include "vantoprotocol.h"

#include <functional>
#include <string_view>

namespace vanto
{

/// A hand as it was when something was asked of it.
struct HandTarget {
    std::shared_ptr<VantoProtocol> adapter;
    std::uint8_t node = 0;
    Generation::Token token;

    /// Whether nothing has changed or stopped the connection since.
    bool isCurrent() const { return token.isCurrent(); }
};

/// Keeps the line for one conversation: until it is destroyed, timers skip and requests wait. See
/// Conversation for what may not happen meanwhile.
class LineHold
{
private:
    Conversation m_conversation;
};

/// Where the failures of a conversation are reported.
class CallReport
{
public:
    virtual ~CallReport() = default;

    /// A time-out. False if it is to be reported like every other failure.
    virtual bool reportTimeout(const HandTarget& target) = 0;
    /// `operation` is a name like "setFingerPos".
    virtual void reportFailure(const HandTarget& target, std::string_view operation,
                               std::uint8_t result, std::uint8_t subError) = 0;
};

/// The name of an operation of VantoProtocol, which is given by its member pointer.
template<auto Operation>
constexpr std::string_view operationName()
{
    constexpr std::string_view scope = "VantoProtocol::";
    std::string_view name = __PRETTY_FUNCTION__;
    name.remove_prefix(name.find(scope) + scope.size());
    return name.substr(0, name.find_first_of(";]"));
}

/// One conversation with one hand; the way to call its adapter.
///
///     HandCall call(target, report);
///     if (call.perform<&VantoProtocol::setFingerPos>(finger, position, speed))
///         ...
///
/// Nothing is sent, and nothing reported, once the target is no longer current.
class HandCall : public LineHold
{
public:
    HandCall(HandTarget target, CallReport& report) : m_target(std::move(target)), m_report(&report)
    {
    }
    /// A conversation of attempts alone.
    explicit HandCall(HandTarget target) : m_target(std::move(target)) {}

    const HandTarget& target() const { return m_target; }
    bool isCurrent() const { return m_target.isCurrent(); }

    /// Calls the operation and reports its failure. True if it has succeeded; only then may its
    /// outputs be read.
    template<auto Operation, class... Arguments>
    bool perform(Arguments... arguments)
    {
        return accept<Operation>(attempt<Operation>(arguments...));
    }

    /// The same without the report: the result code.
    template<auto Operation, class... Arguments>
    std::uint8_t attempt(Arguments... arguments)
    {
        if (!isCurrent())
            return NotSent;
        return std::invoke(Operation, *m_target.adapter, m_target.node, arguments...);
    }

    /// Reports a result that is a failure. True if it is none and still wanted.
    bool accept(std::string_view operation, std::uint8_t result);
    template<auto Operation>
    bool accept(std::uint8_t result)
    {
        return accept(operationName<Operation>(), result);
    }
    /// The hand's own error byte of its most recent exchange.
    std::uint8_t subError() { return m_target.adapter->getNodeError(m_target.node); }

private:
    static constexpr std::uint8_t NotSent = 0xFF;

    HandTarget m_target;
    CallReport* m_report = nullptr;
};

} // namespace vanto
