#include "taskrun.h"

#include "interruption.h"

#include <QJsonArray>

#include <algorithm>

namespace vanto
{

bool runTask(Tool& tool, HandTask& task, Answer& answer)
{
    using Outcome = HandTask::Outcome;
    const Outcome outcome = task.run([&](int done, int total) {
        tool.output().showProgress(done, total);
        if (Interruption::isRequested())
            task.cancel();
    });
    tool.output().showProgress(0, 0);
    switch (outcome) {
    case Outcome::Running:
    case Outcome::Completed:
        return true;
    case Outcome::Cancelled:
    case Outcome::Superseded:
        answer.fail(ExitStatus::Interrupted, task.outcomeText());
        break;
    case Outcome::NoAnswer:
    case Outcome::PortLost:
        answer.fail(ExitStatus::NoAnswer, task.outcomeText(), ResultCode::Timeout);
        break;
    case Outcome::OtherHand:
        answer.fail(ExitStatus::Refused, task.outcomeText());
        break;
    case Outcome::AnyNode:
        answer.fail(ExitStatus::Usage, task.outcomeText());
        break;
    }
    return false;
}

ExitStatus failureStatus(const RefusedParameter& refused)
{
    return refused.result == ResultCode::Timeout || isDamagedReply(refused.result)
               ? ExitStatus::NoAnswer
               : ExitStatus::Refused;
}

void reportReading(const ParameterSet& read, Answer& answer)
{
    for (const RefusedParameter& refused : read.refused) {
        const ExitStatus status = failureStatus(refused);
        if (status == ExitStatus::NoAnswer || read.values.empty())
            answer.fail(status, refused.text(), refused.result, refused.subError);
    }
}

void reportWriting(const ParameterWriter& writer, Answer& answer)
{
    using Result = WrittenParameter::Result;
    for (const WrittenParameter& each : writer.results()) {
        if (each.result == Result::Written)
            continue;
        answer.fail(each.result == Result::NoAnswer ? ExitStatus::NoAnswer : ExitStatus::Refused,
                    each.key.name() + QStringLiteral(": ") + each.text(), each.code, each.subError);
        return;
    }
}

QJsonValue toJson(ParameterKind kind, const ParameterValue& value)
{
    const auto number = [kind](double each) {
        return isGain(kind) ? ParameterValues::shortest(static_cast<float>(each)) : each;
    };
    if (value.size() == 1)
        return number(value.constFirst());
    QJsonArray numbers;
    for (const double each : value)
        numbers.append(number(each));
    return numbers;
}

QStringList parameterNames()
{
    QStringList names;
    for (const ParameterDescriptor& descriptor : parameterDescriptors())
        names.append(QLatin1String(descriptor.name));
    return names;
}

QList<ParameterKey> selectParameters(Arguments& arguments, const QStringList& names)
{
    QList<ParameterKey> selected;
    for (const QString& name : names) {
        const auto kind = ParameterNames::parseKind(name);
        const auto finger = ParameterNames::parseFinger(name);
        const auto key = ParameterNames::parseKey(name);
        qsizetype found = 0;
        for (const ParameterKey& each : allParameterKeys()) {
            if (each.kind != kind && each != key && !(finger && each.finger == finger))
                continue;
            ++found;
            if (!selected.contains(each))
                selected.append(each);
        }
        if (found == 0)
            arguments.setError(QStringLiteral("There is no parameter '%1'.%2")
                                   .arg(name, didYouMean(name, parameterNames() + fingerNames())));
    }
    if (names.isEmpty())
        for (const ParameterKey& each : allParameterKeys())
            if (each.kind != ParameterKind::Calibration)
                selected.append(each);
    return selected;
}

} // namespace vanto
