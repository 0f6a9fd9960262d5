#include "infocommands.h"

#include "parameterreader.h"
#include "supportreport.h"
#include "taskrun.h"

#include <QCoreApplication>

#include <algorithm>

namespace vanto
{

namespace
{
/// Fails if the replies for a value were damaged, or if the hand has refused all values.
void reportUnread(const HandInformation& information, Answer& answer)
{
    using State = HandInformation::State;
    const auto has = [&](State state) {
        return std::ranges::any_of(information.entries,
                                   [&](const auto& entry) { return entry.state == state; });
    };
    if (has(State::NotRead))
        answer.fail(ExitStatus::NoAnswer,
                    QStringLiteral("There is no valid answer for some values."));
    else if (!information.facts.protocol && !information.facts.firmware && has(State::Refused))
        answer.fail(ExitStatus::Refused, QStringLiteral("The hand refuses its versions."));
}

void info(Tool& tool, Arguments&, Answer& answer)
{
    if (!tool.hand().open())
        return;
    HandInformationReader reader(tool.hand().target());
    if (!runTask(tool, reader, answer))
        return;
    answer.data.insert(QStringLiteral("information"), reader.information().toJson());
    answer.text = reader.information().toText();
    if (!answer.text.endsWith(QLatin1Char('\n')))
        answer.text += QLatin1Char('\n');
    reportUnread(reader.information(), answer);
}

void report(Tool& tool, Arguments& arguments, Answer& answer)
{
    SupportReport report;
    report.time = QDateTime::currentDateTimeUtc();
    report.toolVersion = QCoreApplication::applicationVersion();
    report.port = tool.options().port;
    if (tool.hand().open()) {
        report.port = tool.hand().openPortName();
        HandInformationReader information(tool.hand().target());
        runTask(tool, information, answer);
        report.information = information.information();
    }
    if (!answer.hasFailed()) {
        ParameterReader::Options options;
        options.toolVersion = report.toolVersion;
        ParameterReader parameters(tool.hand().target(), options);
        runTask(tool, parameters, answer);
        report.parameters = parameters.parameters();
    }
    if (answer.hasFailed()) // the reason belongs to the report
        report.messages.append(answer.reason());
    if (answer.status() == ExitStatus::Usage || answer.status() == ExitStatus::Interrupted)
        return;
    report.frames = FrameLog::instance().frames();
    const QString path = arguments.values.constFirst();
    const QString error = report.write(path);
    if (!error.isEmpty())
        answer.replaceFailure(ExitStatus::File, error);
    else
        answer.data.insert(QStringLiteral("file"), path);
}
} // namespace

std::vector<Command> infoCommands()
{
    return {
        {"info", "Show all that the hand reports about itself", Effect::Reads, true, {}, {}, info},
        {"report",
         "Write a report for support: information, parameters and the last frames",
         Effect::Reads,
         false,
         {{"file", 1, 1, "File to write; JSON if its name ends in .json, otherwise text"}},
         {},
         report},
    };
}

} // namespace vanto
