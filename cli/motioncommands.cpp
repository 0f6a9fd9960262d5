#include "motioncommands.h"

#include "arrivalwait.h"
#include "motionguard.h"
#include "tool.h"
#include "vantoprotocol.h"

#include <algorithm>
#include <cmath>

namespace vanto
{

namespace
{
constexpr int MaxPosition = 65535;
constexpr double MinAngle = -327.68; ///< degrees
constexpr double MaxAngle = 327.67;
constexpr int MaxSpeed = 255;
const char* const FullSpeed = "255";

const MotionUnit& unitOf(const Arguments& arguments)
{
    return arguments.has("--angle") ? MotionUnit::angle() : MotionUnit::position();
}

/// A position, or an angle in hundredths of a degree.
int parseValue(Arguments& arguments, const QString& text)
{
    if (unitOf(arguments).isPosition())
        return arguments.number(text, "The position", 0, MaxPosition);
    return static_cast<int>(
        std::lround(HundredthsPerDegree * arguments.real(text, "The angle", MinAngle, MaxAngle)));
}

std::uint8_t parseSpeed(Arguments& arguments, const QString& text)
{
    return static_cast<std::uint8_t>(arguments.number(text, "The speed", 0, MaxSpeed));
}

/// `fingers`: those that have been moved.
void waitForArrival(Tool& tool, const MotionUnit& unit, const QList<std::uint8_t>& fingers,
                    Answer& answer)
{
    ArrivalWait wait(tool, answer);
    const bool arrived = wait.run([&]() -> std::optional<QList<ArrivalWait::Way>> {
        HandCall call = tool.hand().call();
        const auto pose = unit.readPose(call);
        if (!pose)
            return {};
        QList<ArrivalWait::Way> ways;
        for (const std::uint8_t finger : fingers) {
            const int target = pose->targets[finger];
            const int current = pose->currents[finger];
            ways.append({finger, target, current, MotionGuard::hasArrived(unit, target, current)});
        }
        return ways;
    });
    wait.writeResult();
    if (arrived)
        tool.hand().noteArrival();
}

void move(Tool& tool, Arguments& arguments, Answer& answer)
{
    const std::uint8_t finger = arguments.finger(arguments.values.value(0));
    const int value = parseValue(arguments, arguments.values.value(1));
    const std::uint8_t speed =
        parseSpeed(arguments, arguments.has("--speed") ? arguments.option("--speed")
                                                       : QLatin1String(FullSpeed));
    if (!arguments.error().isEmpty() || !tool.hand().open())
        return;
    const MotionUnit& unit = unitOf(arguments);
    tool.hand().noteMotion();
    const bool sent = [&] {
        HandCall call = tool.hand().call();
        return unit.move(call, finger, value, speed);
    }();
    if (sent && arguments.has("--wait"))
        waitForArrival(tool, unit, {finger}, answer);
}

PerFinger<std::uint8_t> parseSpeeds(Arguments& arguments)
{
    QStringList texts = arguments.list("--speeds");
    if (texts.isEmpty())
        texts.append(QLatin1String(FullSpeed));
    if (texts.size() != 1 && texts.size() != qsizetype{FingerCount})
        arguments.setError(QStringLiteral("The speeds are one number or six."));
    PerFinger<std::uint8_t> speeds{};
    for (std::size_t i = 0; i < FingerCount; ++i)
        speeds[i] = parseSpeed(arguments, texts.size() == 1
                                              ? texts[0]
                                              : texts.value(static_cast<qsizetype>(i), texts[0]));
    return speeds;
}

bool sendPose(Connection& hand, const MotionUnit& unit, const PerFinger<int>& values,
              const PerFinger<std::uint8_t>& speeds)
{
    HandCall call = hand.call();
    constexpr std::uint8_t count = FingerCount;
    if (unit.isPosition()) {
        PerFinger<std::uint16_t> positions{};
        std::ranges::transform(values, positions.begin(),
                               [](int value) { return static_cast<std::uint16_t>(value); });
        return call.perform<&VantoProtocol::setFingerPosAll>(positions.data(), speeds.data(),
                                                             count);
    }
    PerFinger<std::int16_t> angles{};
    std::ranges::transform(values, angles.begin(),
                           [](int value) { return static_cast<std::int16_t>(value); });
    return call.perform<&VantoProtocol::setFingerAngleAll>(angles.data(), speeds.data(), count);
}

void pose(Tool& tool, Arguments& arguments, Answer& answer)
{
    PerFinger<int> values{};
    if (arguments.values.size() != qsizetype{FingerCount})
        arguments.setError(QStringLiteral("A pose has six values."));
    for (std::size_t i = 0; i < FingerCount; ++i)
        values[i] = parseValue(arguments, arguments.values.value(static_cast<qsizetype>(i)));
    const auto speeds = parseSpeeds(arguments);
    if (!arguments.error().isEmpty() || !tool.hand().open())
        return;
    const MotionUnit& unit = unitOf(arguments);
    tool.hand().noteMotion();
    const bool sent = sendPose(tool.hand(), unit, values, speeds);
    if (sent && arguments.has("--wait"))
        waitForArrival(tool, unit, {0, 1, 2, 3, 4, 5}, answer);
}

void halt(Tool& tool, Arguments&, Answer& answer)
{
    if (tool.hand().open() && tool.hand().halt())
        answer.addLine(Halt::stateText(Halt::State::Halted));
}

void proceed(Tool& tool, Arguments&, Answer&)
{
    if (tool.hand().open())
        tool.hand().proceed();
}
} // namespace

std::vector<Command> motionCommands()
{
    const CommandOption angle{"--angle", nullptr, 0, "The value is an angle in degrees"};
    const CommandOption wait{"--wait", nullptr, 0,
                             "Wait until the fingers have arrived; halt at too much current"};
    return {
        {"move",
         "Move a finger",
         Effect::Writes,
         true,
         {{"finger", 1, 1, "Finger, 0 to 5 or its name"},
          {"value", 1, 1, "Position, 0 to 65535, or angle in degrees"}},
         {angle, {"--speed", "SPEED", 1, "Speed, 0 to 255; 255 if omitted"}, wait},
         move},
        {"pose",
         "Move all fingers at the same time",
         Effect::Writes,
         true,
         {{"values", 6, 6, "Six positions, 0 to 65535, or six angles in degrees"}},
         {angle,
          {"--speeds", "SPEEDS", 6, "One speed for all fingers or six, 0 to 255; 255 if omitted"},
          wait},
         pose},
        {"halt", "Stop all fingers and hold them", Effect::Writes, true, {}, {}, halt},
        {"continue", "Allow motions again after a halt", Effect::Writes, true, {}, {}, proceed},
    };
}

} // namespace vanto
