#include "monitorcommand.h"

#include "eventwait.h"
#include "interruption.h"
#include "telemetryreader.h"
#include "tool.h"
#include "vantoprotocol.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

#include <array>
#include <optional>

namespace vanto
{

namespace
{
constexpr double DefaultRate = 10; ///< samples per second
constexpr double MaxRate = 1000;
constexpr double MaxSeconds = 1e9;

struct Field {
    const char* name;
    Quantity quantity;
    std::size_t count; ///< of fingers
};

constexpr std::array Fields{
    Field{"current", Quantity::Current, FingerCount},
    Field{"position", Quantity::Position, FingerCount},
    Field{"angle", Quantity::Angle, FingerCount},
    Field{"force", Quantity::Force, ForceFingerCount},
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
    names.removeDuplicates();
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

/// Streams samples until the time is over, a read fails or the output is closed.
class Monitor
{
public:
    Monitor(Tool& tool, const Plan& plan)
        : m_tool(tool),
          m_plan(plan),
          m_reader({[&tool] { return std::optional(tool.hand().target()); },
                    {},
                    {},
                    &tool.hand().report()},
                   m_clock)
    {
    }

    void run()
    {
        if (!m_plan.isJson && !m_tool.output().write(header()))
            return;
        ChannelSet channels;
        for (const Field& field : m_plan.fields)
            channels |= channelsOf(field.quantity);
        m_reader.setChannels(channels);
        m_reader.setRate(m_plan.rate);
        QObject::connect(&m_reader, &TelemetryReader::sig_sample, &m_reader,
                         [this](const Sample& sample) { write(sample); });
        m_reader.start();
        waitUntil([this] { return isOver(); });
        m_reader.stop();
    }

    void writeSummary(Answer& answer)
    {
        const double seconds = static_cast<double>(m_clock.nowUs()) / UsPerSecond;
        const qint64 late = lateSamples();
        answer.data.insert(QStringLiteral("samples"), m_samples);
        answer.data.insert(QStringLiteral("late"), late);
        m_tool.output().note(QStringLiteral("%1 samples in %2 s, %3 late")
                                 .arg(m_samples)
                                 .arg(seconds, 0, 'f', 3)
                                 .arg(late));
    }

private:
    qint64 lateSamples() const { return static_cast<qint64>(m_reader.lateSamples()); }

    /// There is at least one sample, however short the time is.
    bool isOver() const
    {
        if (Interruption::isRequested() || !m_reader.isRunning() ||
            !m_tool.hand().target().isCurrent())
            return true;
        const auto end = static_cast<std::int64_t>(m_plan.seconds * UsPerSecond);
        return end > 0 && m_samples > 0 && m_clock.nowUs() >= end;
    }

    QByteArray header() const
    {
        QByteArray line = "time,seconds,late";
        for (const Field& field : m_plan.fields)
            for (std::size_t finger = 0; finger < field.count; ++finger)
                line += ',' + QByteArray(field.name) + QByteArray::number(qulonglong{finger});
        return line + '\n';
    }

    void write(const Sample& sample)
    {
        const QByteArray time =
            QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toLatin1();
        const double seconds = static_cast<double>(sample.timeUs) / UsPerSecond;
        ++m_samples;
        if (!m_tool.output().write(m_plan.isJson ? toJson(time, seconds, sample)
                                                 : toCsv(time, seconds, sample),
                                   [this] { return isOver(); }))
            m_reader.stop();
    }

    static QList<double> numbers(const Field& field, const Sample& sample)
    {
        const double unit = field.quantity == Quantity::Angle ? HundredthsPerDegree : 1;
        QList<double> numbers;
        for (std::size_t finger = 0; finger < field.count; ++finger)
            numbers.append(
                sample.values[Channel{field.quantity, static_cast<std::uint8_t>(finger)}.index()] /
                unit);
        return numbers;
    }

    QByteArray toCsv(const QByteArray& time, double seconds, const Sample& sample) const
    {
        QByteArray line = time + ',' + QByteArray::number(seconds, 'f', 6) + ',' +
                          QByteArray::number(lateSamples());
        for (const Field& field : m_plan.fields)
            for (const double number : numbers(field, sample))
                line += ',' + QByteArray::number(number, 'g', 10);
        return line + '\n';
    }

    QByteArray toJson(const QByteArray& time, double seconds, const Sample& sample) const
    {
        QJsonObject object{{QStringLiteral("schema"), Answer::SchemaVersion},
                           {QStringLiteral("time"), QString::fromLatin1(time)},
                           {QStringLiteral("seconds"), seconds},
                           {QStringLiteral("late"), lateSamples()}};
        for (const Field& field : m_plan.fields) {
            QJsonArray array;
            for (const double number : numbers(field, sample))
                array.append(number);
            object.insert(QLatin1String(field.name), array);
        }
        return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
    }

    Tool& m_tool;
    const Plan& m_plan;
    const TelemetryClock m_clock;
    TelemetryReader m_reader;
    qint64 m_samples = 0;
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
