#include "portcommands.h"

#include "handscan.h"
#include "interruption.h"
#include "portchoice.h"
#include "porterror.h"
#include "tool.h"

#include <QJsonArray>

#include <set>

namespace vanto
{

namespace
{
constexpr int FirstScanned = 1;
constexpr int LastScanned = HighestNode;

QJsonObject describe(const PortEntry& port, const QString& problem)
{
    QJsonObject object{{QStringLiteral("name"), port.name},
                       {QStringLiteral("description"), port.description},
                       {QStringLiteral("canOpen"), problem.isEmpty()}};
    if (!problem.isEmpty())
        object.insert(QStringLiteral("problem"), problem);
    if (port.adapter) {
        object.insert(QStringLiteral("vendor"), port.adapter->vendor);
        object.insert(QStringLiteral("product"), port.adapter->product);
        object.insert(QStringLiteral("serialNumber"), port.adapter->serialNumber);
    }
    return object;
}

void listPorts(Tool& tool, Arguments&, Answer& answer)
{
    QJsonArray list;
    for (const PortEntry& port : availablePorts()) {
        const bool canOpen = examinePort(port.name) == PortProblem::None;
        QString problem = canOpen ? QString() : describePortProblem(port.name);
        if (!canOpen && problem.isEmpty())
            problem = QStringLiteral("The port cannot be opened.");
        list.append(describe(port, problem));
        answer.addLine(tool.output().heading(port.name));
        if (!port.description.isEmpty())
            answer.addLine(QStringLiteral("  ") + port.description);
        for (const QString& line : port.details.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            if (line != port.description)
                answer.addLine(QStringLiteral("  ") + line);
        answer.addLine(QStringLiteral("  ") +
                       (canOpen ? QStringLiteral("Can be opened.") : problem));
    }
    if (list.isEmpty())
        tool.output().note(QStringLiteral("There is no serial port."));
    answer.data.insert(QStringLiteral("ports"), list);
}

/// Adds the nodes of "7" or "1-16".
void addNodes(const QString& part, Arguments& arguments, std::set<int>& nodes)
{
    const QStringList ends = part.split(QLatin1Char('-'));
    const int first = arguments.number(ends.first(), "A node", 0, HighestNode);
    const int last = arguments.number(ends.last(), "A node", 0, HighestNode);
    if (ends.size() > 2 || last < first)
        arguments.setError(QStringLiteral("The nodes '%1' are not in order.").arg(part));
    for (int node = first; node <= last; ++node)
        nodes.insert(node);
}

/// The nodes of "1-16,32", each one once and in order.
std::set<int> parseNodes(Arguments& arguments)
{
    std::set<int> nodes;
    for (const QString& part : arguments.list("--nodes"))
        addNodes(part, arguments, nodes);
    if (nodes.empty() && arguments.has("--nodes"))
        arguments.setError(QStringLiteral("No nodes are given."));
    if (nodes.empty())
        for (int node = FirstScanned; node <= LastScanned; ++node)
            nodes.insert(node);
    return nodes;
}

/// To node 0, the broadcast address of Modbus, only SerialCtrl hands can answer.
std::optional<PROTOCOL_TYPE> protocolFor(int node, std::optional<PROTOCOL_TYPE> chosen)
{
    return node == 0 ? PROTOCOL_TYPE_SERIALCTRL : chosen;
}

struct SilentReport : CallReport {
    bool reportTimeout(const HandTarget&) override { return true; }
    void reportFailure(const HandTarget&, std::string_view, std::uint8_t, std::uint8_t) override {}
};

QJsonObject describe(const DeviceEntry& entry)
{
    const bool isModbus = entry.protocolName == QLatin1String("ModBus-RTU");
    return {{QStringLiteral("node"), entry.node},
            {QStringLiteral("protocol"),
             isModbus ? QStringLiteral("modbus") : QStringLiteral("serialctrl")},
            {QStringLiteral("firmware"), QStringLiteral("%1.%2.%3")
                                             .arg(entry.firmwareMajor)
                                             .arg(entry.firmwareMinor)
                                             .arg(entry.firmwareRevision)},
            {QStringLiteral("protocolVersion"),
             QStringLiteral("%1.%2").arg(entry.protocolMajor).arg(entry.protocolMinor)}};
}

void scan(Tool& tool, Arguments& arguments, Answer& answer)
{
    std::set<int> nodes = parseNodes(arguments);
    if (tool.options().protocol == PROTOCOL_TYPE_MODBUS_RTU && nodes.erase(0) > 0 && nodes.empty())
        arguments.setError(QStringLiteral("Over Modbus no hand has node 0."));
    if (!arguments.error().isEmpty())
        return;
    const auto port = tool.hand().portName();
    if (!port)
        return;
    const auto total = static_cast<int>(nodes.size());
    int done = 0;
    SilentReport report;
    HandScan handScan(report);
    QJsonArray hands;
    QObject::connect(&handScan, &HandScan::sig_nodeStarted, &handScan, [&](int) {
        tool.output().showProgress(done++, total);
        if (Interruption::isRequested())
            handScan.stop();
    });
    QObject::connect(&handScan, &HandScan::sig_found, &handScan, [&](const DeviceEntry& entry) {
        hands.append(describe(entry));
        answer.data.insert(QStringLiteral("hands"), hands); // also if a signal ends the program
        answer.addLine(entry.text());
    });
    const Generation generation; // a signal ends the scan after the present exchange
    QObject::connect(&tool, &Tool::sig_interrupted, &handScan, [&] { handScan.stop(); });
    for (const int node : nodes) {
        if (Interruption::isRequested())
            break;
        const HandScan::Outcome outcome = handScan.run(
            *port, generation.token(), {node, node, protocolFor(node, tool.options().protocol)});
        if (outcome == HandScan::Outcome::PortNotOpened)
            tool.hand().reportNotOpened(*port, handScan.failedProtocol());
        if (outcome == HandScan::Outcome::PortLost)
            tool.hand().reportPortLost();
        if (outcome != HandScan::Outcome::Completed)
            break;
    }
    answer.data.insert(QStringLiteral("hands"), hands);
    if (hands.isEmpty() && !Interruption::isRequested())
        answer.fail(ExitStatus::NoAnswer, QStringLiteral("No hand answers."), ResultCode::Timeout);
}
} // namespace

std::vector<Command> portCommands()
{
    return {
        {"ports",
         "List the serial ports and whether they can be opened",
         Effect::NoHand,
         false,
         {},
         {},
         listPorts},
        {"scan",
         "List the hands that answer",
         Effect::NoHand,
         false,
         {},
         {{"--nodes", "LIST", 64,
           "Nodes to try, for example 1-16,32; all from 1 to 255 if omitted"}},
         scan},
    };
}

} // namespace vanto
