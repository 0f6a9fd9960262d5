#include "basiccommands.h"

#include "basicoperations.h"
#include "calltext.h"
#include "eventwait.h"
#include "interruption.h"
#include "tool.h"

#include <QElapsedTimer>

namespace vanto
{

namespace
{
constexpr int LowestNewId = 2;
constexpr int HighestNewId = 254;
constexpr int RebootMs = 10000; ///< a Modbus hand reboots after it has got a new id
constexpr int AskAgainMs = 200;

template<auto Operation, class... Values>
void perform(Tool& tool, Values... values)
{
    if (!tool.hand().open())
        return;
    if (MotionGate::isMotion(operationName<Operation>()))
        tool.hand().noteMotion();
    tool.hand().call().template perform<Operation>(values...);
}

void beep(Tool& tool, Arguments& arguments, Answer&)
{
    const int duration = arguments.values.isEmpty()
                             ? int{BeepMs}
                             : arguments.number(arguments.values[0], "The duration", 0, 65535);
    if (arguments.error().isEmpty())
        perform<&VantoProtocol::beep>(tool, static_cast<std::uint16_t>(duration));
}

void reset(Tool& tool, Arguments&, Answer&)
{
    perform<&VantoProtocol::reset>(tool, ResetMode);
}

void startInit(Tool& tool, Arguments&, Answer&)
{
    perform<&VantoProtocol::startInit>(tool);
}

bool answers(Connection& hand)
{
    HandCall call(hand.target());
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    std::uint16_t revision = 0;
    return call.attempt<&VantoProtocol::getFirmwareVersion>(&major, &minor, &revision) ==
           ResultCode::Success;
}

void setId(Tool& tool, Arguments& arguments, Answer& answer)
{
    const auto newNode = static_cast<std::uint8_t>(
        arguments.number(arguments.values.value(0), "The new id", LowestNewId, HighestNewId));
    if (!arguments.error().isEmpty())
        return;
    Connection& hand = tool.hand();
    answer.data.insert(QStringLiteral("newNode"), newNode);
    if (!hand.open())
        return;
    if (newNode == hand.node()) {
        if (!answers(hand) && !Interruption::isRequested())
            answer.fail(ExitStatus::NoAnswer, CallText::noHand(newNode), ResultCode::Timeout);
        return;
    }
    if (!hand.call().perform<&VantoProtocol::setID>(newNode))
        return;
    hand.followNode(newNode);
    QElapsedTimer timer;
    timer.start();
    while (!answers(hand)) {
        if (Interruption::isRequested() || answer.hasFailed())
            return;
        if (timer.hasExpired(tool.options().stretched(RebootMs))) {
            answer.fail(ExitStatus::NoAnswer, CallText::noHand(newNode), ResultCode::Timeout);
            return;
        }
        waitUntil(&Interruption::isRequested, AskAgainMs);
    }
    answer.addLine(QStringLiteral("The hand answers as node %1.").arg(newNode));
}
} // namespace

std::vector<Command> basicCommands()
{
    return {
        {"beep",
         "Beep",
         Effect::Writes,
         true,
         {{"milliseconds", 0, 1, "Duration, 0 to 65535; 500 if omitted"}},
         {},
         beep},
        {"reset", "Reset the hand", Effect::Writes, true, {}, {}, reset},
        {"init",
         "Start the initialization, which moves the fingers",
         Effect::Writes,
         true,
         {},
         {},
         startInit},
        {"set-id",
         "Give the hand a new node id and wait until it answers to it",
         Effect::Writes,
         true,
         {{"new", 1, 1, "New node id, 2 to 254"}},
         {},
         setId},
    };
}

} // namespace vanto
