#include "filecommands.h"

#include "interruption.h"
#include "parametercomparison.h"
#include "parameterfile.h"
#include "parameterreader.h"
#include "taskrun.h"

#include <QCoreApplication>
#include <QJsonArray>

#include <algorithm>
#include <utility>

namespace vanto
{

namespace
{
bool readFile(const QString& path, ParameterSet& parameters, Answer& answer)
{
    const ParameterFile::Content content = ParameterFile::read(path);
    if (!content.isValid())
        answer.fail(ExitStatus::File, content.error);
    parameters = content.parameters;
    return content.isValid();
}

/// Reads everything, or what `keys` names.
std::optional<ParameterSet> readHand(Tool& tool, Answer& answer,
                                     const QList<ParameterKey>& keys = allParameterKeys())
{
    if (!tool.hand().open())
        return {};
    ParameterReader reader(tool.hand().target(),
                           {.keys = keys, .toolVersion = QCoreApplication::applicationVersion()});
    if (!runTask(tool, reader, answer))
        return {};
    reportReading(reader.parameters(), answer);
    return answer.hasFailed() ? std::nullopt : std::optional(reader.parameters());
}

void backup(Tool& tool, Arguments& arguments, Answer& answer)
{
    const auto parameters = readHand(tool, answer);
    if (!parameters)
        return;
    const QString path = arguments.values.constFirst();
    const QString error = ParameterFile::write(path, *parameters);
    if (!error.isEmpty()) {
        answer.fail(ExitStatus::File, error);
        return;
    }
    QJsonArray refused;
    for (const RefusedParameter& each : parameters->refused) {
        refused.append(each.text());
        tool.output().note(each.text());
    }
    answer.data.insert(QStringLiteral("file"), path);
    answer.data.insert(QStringLiteral("refused"), refused);
}

QJsonValue toJson(ParameterKind kind, const std::optional<ParameterValue>& value)
{
    return value ? toJson(kind, *value) : QJsonValue();
}

QString toText(ParameterKind kind, const std::optional<ParameterValue>& value)
{
    return value ? ParameterValues::text(kind, *value) : QStringLiteral("-");
}

QJsonObject toJson(const ParameterRow& row)
{
    return {{QStringLiteral("parameter"), row.key.name()},
            {QStringLiteral("hand"), toJson(row.key.kind, row.inHand)},
            {QStringLiteral("file"), toJson(row.key.kind, row.inFile)}};
}

QString toText(const ParameterRow& row)
{
    return QStringLiteral("%1: %2 in the hand, %3 in the file")
        .arg(row.key.name(), toText(row.key.kind, row.inHand), toText(row.key.kind, row.inFile));
}

ParameterTolerances parseTolerances(Arguments& arguments)
{
    constexpr double Largest = 1e9;
    ParameterTolerances tolerances;
    for (const QString& text : arguments.options.value(QStringLiteral("--tolerance"))) {
        const QString name = text.section(QLatin1Char('='), 0, 0);
        const auto kind = ParameterNames::parseKind(name);
        if (kind)
            tolerances[*kind] =
                arguments.real(text.section(QLatin1Char('='), 1), "The tolerance", 0, Largest);
        else
            arguments.setError(
                QStringLiteral("There is no parameter '%1'; a tolerance is NAME=X.%2")
                    .arg(name, didYouMean(name, parameterNames())));
    }
    return tolerances;
}

/// What --only names. An empty list is an error; it must not stand for everything.
QList<ParameterKey> parseOnly(Arguments& arguments)
{
    const QStringList names = arguments.list("--only");
    if (arguments.has("--only") && names.isEmpty())
        arguments.setError(QStringLiteral("--only names no parameter."));
    return selectParameters(arguments, names);
}

void diff(Tool& tool, Arguments& arguments, Answer& answer)
{
    const ParameterTolerances tolerances = parseTolerances(arguments);
    const bool isLimited = arguments.has("--only");
    const auto only = parseOnly(arguments);
    ParameterSet file;
    if (!arguments.error().isEmpty() || !readFile(arguments.values.constFirst(), file, answer))
        return;
    // The calibration differs from hand to hand.
    QList<ParameterKey> keys;
    for (const auto& [key, value] : file.values)
        if (isLimited ? only.contains(key) : key.kind != ParameterKind::Calibration)
            keys.append(key);
    if (keys.isEmpty()) {
        answer.fail(ExitStatus::File, QStringLiteral("The file has no parameter to compare."));
        return;
    }
    const auto hand = readHand(tool, answer, keys);
    if (!hand)
        return;
    QJsonArray different;
    for (const ParameterRow& row : compareParameters(*hand, file, tolerances)) {
        if (!keys.contains(row.key) || !differs(row))
            continue;
        different.append(toJson(row));
        answer.addLine(toText(row));
    }
    answer.data.insert(QStringLiteral("different"), different);
    answer.data.insert(QStringLiteral("compared"), keys.size());
    if (!different.isEmpty())
        answer.fail(
            ExitStatus::Refused,
            QStringLiteral("%1 of %2 parameters differ.").arg(different.size()).arg(keys.size()));
}

/// The user must know what another hardware means, and what a calibration or limits do that belong
/// to one hand, if such are to be written.
bool isAllowed(Tool& tool, const Arguments& arguments, const ParameterSet& hand,
               const ParameterSet& file, bool isOfOneHand, Answer& answer)
{
    const auto agree = [&](const QString& text) {
        if (arguments.has("--yes") ||
            tool.askYesNo(text + QStringLiteral(" Restore nevertheless?")))
            return true;
        answer.fail(ExitStatus::Usage, text + QStringLiteral(" Restoring needs --yes."));
        return false;
    };
    if (isOtherHardware(hand.hand, file.hand) &&
        !agree(QStringLiteral("The file is from other hardware.")))
        return false;
    if (!isOfOneHand)
        return true;
    const CalibrationRule rule = calibrationRule(hand.hand, file.hand);
    if (rule == CalibrationRule::OtherHand) {
        answer.fail(ExitStatus::Refused,
                    QStringLiteral("The calibration and the position limits in the file are those "
                                   "of another hand."));
        return false;
    }
    return rule == CalibrationRule::SameHand ||
           agree(QStringLiteral("It is not known whether the file is from this hand; a wrong "
                                "calibration or wrong position limits drive fingers into their "
                                "stops."));
}

/// What is to be written: by default what differs, but nothing that the user must ask for by name.
QList<ParameterRow> chooseRows(const QList<ParameterRow>& rows, bool isLimited,
                               const QList<ParameterKey>& only, bool withCalibration)
{
    QList<ParameterRow> chosen;
    for (const ParameterRow& row : rows) {
        const bool isCalibration = row.key.kind == ParameterKind::Calibration;
        const bool isWanted = isCalibration ? withCalibration
                              : isLimited   ? only.contains(row.key)
                                            : row.isTickedByDefault();
        if (isWanted && row.canTick())
            chosen.append(row);
    }
    return chosen;
}

void writeResults(const ParameterWriter& writer, Answer& answer)
{
    QJsonArray results;
    for (const WrittenParameter& each : writer.results()) {
        results.append(QJsonObject{
            {QStringLiteral("parameter"), each.key.name()},
            {QStringLiteral("written"), each.result == WrittenParameter::Result::Written},
            {QStringLiteral("text"), each.text()},
            {QStringLiteral("result"), each.code},
            {QStringLiteral("subError"), each.subError}});
        answer.addLine(each.key.name() + QStringLiteral(": ") + each.text());
    }
    answer.data.insert(QStringLiteral("results"), results);
    if (const auto& inHand = writer.calibrationInHand())
        answer.data.insert(QStringLiteral("calibrationInHand"),
                           toJson(ParameterKind::Calibration, fromCalibration(*inHand)));
}

/// What the file says but the hand cannot take.
void reportObstacles(Tool& tool, const QList<ParameterRow>& rows, const QList<ParameterKey>& only,
                     bool isLimited, Answer& answer)
{
    for (const ParameterRow& row : rows) {
        if (row.obstacle().isEmpty() || !row.inFile || (isLimited && !only.contains(row.key)))
            continue;
        const QString text = row.key.name() + QStringLiteral(": ") + row.obstacle();
        tool.output().note(text);
        answer.fail(ExitStatus::Refused, text);
    }
}

/// Whether --only names position limits, not just a finger.
bool namesLimits(const Arguments& arguments)
{
    return std::ranges::any_of(arguments.list("--only"), [](const QString& name) {
        return ParameterNames::parseKind(name.section(QLatin1Char('.'), 0, 0)) ==
               ParameterKind::PositionLimits;
    });
}

void restore(Tool& tool, Arguments& arguments, Answer& answer)
{
    const bool isLimited = arguments.has("--only");
    const bool withCalibration = arguments.has("--with-calibration");
    auto only = parseOnly(arguments);
    if (isLimited && !withCalibration &&
        only.contains(ParameterKey{ParameterKind::Calibration, {}}))
        arguments.setError(QStringLiteral("Restoring the calibration needs --with-calibration."));
    ParameterSet file;
    if (!arguments.error().isEmpty() || !readFile(arguments.values.constFirst(), file, answer))
        return;
    const auto hand = readHand(tool, answer);
    if (!hand)
        return;
    const auto isLimits = [](const ParameterKey& key) {
        return key.kind == ParameterKind::PositionLimits;
    };
    const auto rows = compareParameters(*hand, file);
    bool wantsLimits = std::ranges::any_of(rows, [&](const ParameterRow& row) {
        return isLimits(row.key) && only.contains(row.key) && differs(row);
    });
    const bool isOfHand = calibrationRule(hand->hand, file.hand) == CalibrationRule::SameHand;
    if (!isOfHand && !namesLimits(arguments)) {
        only.removeIf(isLimits);
        if (std::exchange(wantsLimits, false))
            tool.output().note(QStringLiteral("Position limits are not restored, because the file "
                                              "may be from another hand."));
    }
    if (!isAllowed(tool, arguments, *hand, file, withCalibration || wantsLimits, answer))
        return;
    const auto chosen = chooseRows(rows, isLimited, only, withCalibration);
    QList<ParameterKey> keys;
    for (const ParameterRow& row : chosen)
        keys.append(row.key);
    if (arguments.has("--dry-run")) {
        QJsonArray wouldWrite;
        for (const ParameterRow& row : chosen) {
            wouldWrite.append(toJson(row));
            answer.addLine(toText(row));
        }
        answer.data.insert(QStringLiteral("wouldWrite"), wouldWrite);
        return;
    }
    // Position limits are written only if --only names them.
    ParameterWriter writer(tool.hand().target(), *hand, file, keys,
                           {.writeCalibration = withCalibration, .writeUnknownLimits = isLimited});
    const bool isComplete = keys.isEmpty() || runTask(tool, writer, answer);
    writeResults(writer, answer);
    if (!isComplete)
        return;
    reportWriting(writer, answer);
    reportObstacles(tool, rows, only, isLimited, answer);
}
} // namespace

std::vector<Command> fileCommands()
{
    const CommandOption only{"--only", "LIST", 64,
                             "Parameters, kinds or fingers, for example P,currentLimit,I.thumb"};
    return {
        {"backup",
         "Write all parameters of the hand to a file",
         Effect::Reads,
         false,
         {{"file", 1, 1, "File to write"}},
         {},
         backup},
        {"restore",
         "Write what differs from a file to the hand",
         Effect::Writes,
         false,
         {{"file", 1, 1, "A parameter file"}},
         {only,
          {"--with-calibration", nullptr, 0, "Restore the calibration too"},
          {"--dry-run", nullptr, 0, "Only show what would be written"},
          {"--yes", nullptr, 0, "Do not ask"}},
         restore},
        {"diff",
         "Compare the hand with a file",
         Effect::Reads,
         false,
         {{"file", 1, 1, "A parameter file"}},
         {{"--tolerance", "NAME=X", 64, "Largest difference of a parameter that counts as equal"},
          only},
         diff},
    };
}

} // namespace vanto
