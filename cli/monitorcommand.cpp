#include "monitorcommand.h"

#include "eventwait.h"
#include "handvalues.h"
#include "interruption.h"
#include "motionunit.h"
#include "tool.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <cmath>

namespace vanto
{

namespace
{
constexpr double DefaultRate = 10; ///< samples per second
constexpr double MaxRate = 1000;
constexpr double MaxSeconds = 1e9;
constexpr qint64 NsPerS = 1'000'000'000;
constexpr qint64 NsPerMs = 1'000'000;

using Numbers = QList<double>;

std::optional<Numbers> readCurrents(HandCall& call)
{
    Numbers numbers;
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        std::uint16_t current = 0;
        if (!call.perform<&VantoProtocol::getFingerCurrent>(finger, &current))
            return {};
        numbers.append(current);
    }
    return numbers;
}

std::optional<Numbers> readForces(HandCall& call)
{
    Numbers numbers;
    for (std::uint8_t finger = 0; finger < ForceFingers; ++finger) {
        std::uint16_t force = 0;
        if (!call.perform<&VantoProtocol::getFingerForce>(finger, &force, std::uint8_t{1}))
            return {};
        numbers.append(force);
    }
    return numbers;
}

std::optional<Numbers> readPositions(HandCall& call, const MotionUnit& unit)
{
    const auto pose = unit.readPose(call);
    if (!pose)
        return {};
    Numbers numbers;
    for (const int value : pose->currents)
        numbers.append(unit.isPosition() ? value : value / HundredthsPerDegree);
    return numbers;
}

struct Field {
    const char* name;
    std::size_t count;
    std::optional<Numbers> (*read)(HandCall& call);
};

const std::array Fields{
    Field{"current", FingerCount, readCurrents},
    Field{"position", FingerCount,
          [](HandCall& call) { return readPositions(call, MotionUnit::position()); }},
    Field{"angle", FingerCount,
          [](HandCall& call) { return readPositions(call, MotionUnit::angle()); }},
    Field{"force", ForceFingers, readForces},
};

struct Plan {
    QList<Field> fields;
    double rate = DefaultRate; ///< 0: as fast as possible
    double seconds = 0;        ///< 0: until it is ended
    bool isJson = false;
};

Plan parsePlan(const Tool& tool, Arguments& arguments)
{
    Plan plan;
    QStringList names = arguments.list("--fields");
    if (names.isEmpty())
        names.append(QStringLiteral("current"));
    QStringList known;
    for (const Field& field : Fields)
        known.append(QLatin1String(field.name));
    for (const QString& name : names) {
        const qsizetype index = known.indexOf(name);
        if (index < 0)
            arguments.setError(
                QStringLiteral("There is no field '%1'; use some of %2.%3")
                    .arg(name, known.join(QLatin1String(", ")), didYouMean(name, known)));
        else
            plan.fields.append(Fields.at(static_cast<std::size_t>(index)));
    }
    if (arguments.option("--rate") == QLatin1String("max"))
        plan.rate = 0;
    else if (arguments.has("--rate"))
        plan.rate = arguments.real(arguments.option("--rate"), "The rate", 0.001, MaxRate);
    if (arguments.has("--for"))
        plan.seconds = arguments.real(arguments.option("--for"), "The time", 0.001, MaxSeconds);
    const QString format = arguments.option("--format");
    if (!format.isEmpty() && format != QLatin1String("csv") && format != QLatin1String("jsonl"))
        arguments.setError(
            QStringLiteral("The format must be csv or jsonl, not '%1'.").arg(format));
    plan.isJson = format == QLatin1String("jsonl") || (format.isEmpty() && tool.options().json);
    return plan;
}

/// Streams samples and counts those that come more than a period late.
class Monitor
{
public:
    Monitor(Tool& tool, const Plan& plan) : m_tool(tool), m_plan(plan) {}

    void run()
    {
        if (!m_plan.isJson && !m_tool.output().write(header()))
            return;
        m_clock.start();
        const auto period =
            m_plan.rate > 0 ? static_cast<qint64>(std::llround(NsPerS / m_plan.rate)) : 0;
        const auto end = static_cast<qint64>(m_plan.seconds * NsPerS);
        qint64 due = 0;
        while (!Interruption::isRequested() && (end == 0 || m_clock.nsecsElapsed() < end)) {
            waitFor(due);
            if (Interruption::isRequested())
                break;
            const qint64 begin = m_clock.nsecsElapsed();
            if (period > 0 && begin - due > period) {
                const qint64 missed = (begin - due) / period;
                m_late += missed;
                due += missed * period;
            }
            if (!sample(begin))
                break;
            due += period;
        }
    }

    void writeSummary(Answer& answer)
    {
        const double seconds = static_cast<double>(m_clock.nsecsElapsed()) / NsPerS;
        answer.data.insert(QStringLiteral("samples"), m_samples);
        answer.data.insert(QStringLiteral("late"), m_late);
        m_tool.output().note(QStringLiteral("%1 samples in %2 s, %3 late")
                                 .arg(m_samples)
                                 .arg(seconds, 0, 'f', 3)
                                 .arg(m_late));
    }

private:
    void waitFor(qint64 due) const
    {
        const qint64 left = (due - m_clock.nsecsElapsed() + NsPerMs / 2) / NsPerMs;
        if (left > 0)
            waitUntil(&Interruption::isRequested, static_cast<int>(left));
    }

    QByteArray header() const
    {
        QByteArray line = "time,seconds,late";
        for (const Field& field : m_plan.fields)
            for (std::size_t finger = 0; finger < field.count; ++finger)
                line += ',' + QByteArray(field.name) + QByteArray::number(qulonglong{finger});
        return line + '\n';
    }

    bool sample(qint64 begin)
    {
        const QByteArray time =
            QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toLatin1();
        const auto values = read();
        if (!values)
            return false;
        ++m_samples;
        const double seconds = static_cast<double>(begin) / NsPerS;
        return m_tool.output().write(m_plan.isJson ? toJson(time, seconds, *values)
                                                   : toCsv(time, seconds, *values));
    }

    std::optional<QList<Numbers>> read()
    {
        QList<Numbers> values;
        HandCall call = m_tool.hand().call();
        for (const Field& field : m_plan.fields) {
            const auto numbers = field.read(call);
            if (!numbers)
                return {};
            values.append(*numbers);
        }
        return values;
    }

    QByteArray toCsv(const QByteArray& time, double seconds, const QList<Numbers>& values) const
    {
        QByteArray line =
            time + ',' + QByteArray::number(seconds, 'f', 6) + ',' + QByteArray::number(m_late);
        for (const Numbers& numbers : values)
            for (const double number : numbers)
                line += ',' + QByteArray::number(number, 'g', 10);
        return line + '\n';
    }

    QByteArray toJson(const QByteArray& time, double seconds, const QList<Numbers>& values) const
    {
        QJsonObject object{{QStringLiteral("schema"), Answer::SchemaVersion},
                           {QStringLiteral("time"), QString::fromLatin1(time)},
                           {QStringLiteral("seconds"), seconds},
                           {QStringLiteral("late"), m_late}};
        for (qsizetype i = 0; i < values.size(); ++i) {
            QJsonArray numbers;
            for (const double number : values[i])
                numbers.append(number);
            object.insert(QLatin1String(m_plan.fields[i].name), numbers);
        }
        return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    }

    Tool& m_tool;
    const Plan& m_plan;
    QElapsedTimer m_clock;
    qint64 m_samples = 0;
    qint64 m_late = 0; ///< samples that were missed because an earlier one took too long
};

void monitor(Tool& tool, Arguments& arguments, Answer& answer)
{
    const Plan plan = parsePlan(tool, arguments);
    if (!arguments.error().isEmpty() || !tool.hand().open())
        return;
    tool.setHasWritten();
    Monitor running(tool, plan);
    running.run();
    running.writeSummary(answer);
}
} // namespace

std::vector<Command> monitorCommands()
{
    return {{"monitor",
             "Stream values with times",
             Effect::Reads,
             false,
             {},
             {{"--rate", "HZ", 1, "Samples per second, or max; 10 if omitted"},
              {"--fields", "FIELDS", 4,
               "Some of current, position, angle and force; current if omitted"},
              {"--format", "FORMAT", 1, "csv or jsonl; csv if omitted, jsonl with --json"},
              {"--for", "SECONDS", 1, "Duration; until Ctrl-C if omitted"}},
             monitor}};
}

} // namespace vanto
