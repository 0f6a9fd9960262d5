#include "parametercommands.h"

#include "basicoperations.h"
#include "deviceentry.h"
#include "handvalues.h"
#include "parameterreader.h"
#include "taskrun.h"

#include <QJsonArray>
#include <QLocale>

namespace vanto
{

namespace
{
constexpr QLatin1String GainsName("gains");

QStringList knownNames(bool forWriting)
{
    QStringList names = parameterNames();
    names.prepend(GainsName);
    if (!forWriting)
        for (const HandValue& value : handValues())
            names.append(QLatin1String(value.name));
    return names;
}

QString unknownName(const QString& name, bool forWriting)
{
    const QStringList names = knownNames(forWriting);
    if (forWriting && findHandValue(name))
        return QStringLiteral("'%1' can only be read.").arg(name);
    const QString meant = didYouMean(name, names);
    return QStringLiteral("There is no value '%1'.").arg(name) +
           (meant.isEmpty() ? QStringLiteral(" Use one of %1.").arg(names.join(QLatin1String(", ")))
                            : meant);
}

/// One value, or one for each finger.
class ValueList
{
public:
    ValueList(Answer& answer, const QString& name, bool isSingle)
        : m_answer(answer), m_isSingle(isSingle)
    {
        m_answer.data.insert(QStringLiteral("name"), name);
    }

    void add(std::optional<std::uint8_t> finger, const QJsonValue& value, const QString& text)
    {
        const QString name = finger ? ParameterNames::finger(*finger) : QString();
        if (m_isSingle) {
            if (finger)
                m_answer.data.insert(QStringLiteral("finger"), name);
            m_answer.data.insert(QStringLiteral("value"), value);
            m_answer.addLine(text);
            return;
        }
        m_values.insert(name, value);
        m_answer.data.insert(QStringLiteral("values"), m_values);
        m_answer.addLine(name + QLatin1Char(' ') + text);
    }

private:
    Answer& m_answer;
    bool m_isSingle;
    QJsonObject m_values;
};

QString toText(const QJsonValue& value)
{
    if (value.isString())
        return value.toString();
    if (value.isDouble())
        return QString::number(value.toDouble(), 'f', QLocale::FloatingPointShortest);
    QStringList parts;
    for (const QJsonValue element : value.toArray())
        parts.append(toText(element));
    const QJsonObject object = value.toObject();
    for (auto each = object.begin(); each != object.end(); ++each)
        parts << each.key() << toText(each.value());
    return parts.join(QLatin1Char(' '));
}

void getHandValue(Tool& tool, const HandValue& value, std::optional<std::uint8_t> finger,
                  Answer& answer)
{
    if (!tool.hand().open())
        return;
    const bool isSingle = finger || value.fingers == 0;
    ValueList list(answer, QLatin1String(value.name), isSingle);
    HandCall call = tool.hand().call();
    if (!isSingle && value.readAll) { // one exchange, so the values belong to one moment
        std::uint8_t each = 0;
        for (const QJsonValue read : value.readAll(call))
            list.add(each++, read, toText(read));
        return;
    }
    const int first = finger.value_or(0);
    const int last = isSingle ? first : value.fingers - 1;
    for (int each = first; each <= last; ++each) {
        const QJsonValue read = value.read(call, static_cast<std::uint8_t>(each));
        if (read.isUndefined())
            return;
        list.add(value.fingers > 0 ? std::optional(static_cast<std::uint8_t>(each)) : std::nullopt,
                 read, toText(read));
    }
}

void getParameter(Tool& tool, ParameterKind kind, std::optional<std::uint8_t> finger,
                  Answer& answer)
{
    ParameterReader::Options options;
    options.keys.removeIf([&](const ParameterKey& key) {
        return key.kind != kind || (finger && key.finger != finger);
    });
    options.facts = false;
    options.forceSensing = true; // otherwise the hand refuses
    options.timeoutsInARow = 1;
    if (!tool.hand().open())
        return;
    ParameterReader reader(tool.hand().target(), options);
    if (!runTask(tool, reader, answer))
        return;
    const ParameterSet& read = reader.parameters();
    for (const RefusedParameter& refused : read.refused)
        answer.fail(failureStatus(refused), refused.text(), refused.result, refused.subError);
    if (read.values.empty() && read.refused.isEmpty())
        answer.fail(ExitStatus::Refused, QStringLiteral("This protocol has no such value."));
    ValueList list(answer, QLatin1String(describe(kind).name), options.keys.size() == 1);
    for (const auto& [key, value] : read.values)
        list.add(key.finger, toJson(kind, value), ParameterValues::text(kind, value));
}

void get(Tool& tool, Arguments& arguments, Answer& answer)
{
    const QString name = arguments.values.value(0);
    const auto kind = ParameterNames::parseKind(name);
    const HandValue* value = findHandValue(name);
    if (!kind && !value) {
        arguments.setError(unknownName(name, false));
        return;
    }
    const int fingers = kind ? static_cast<int>(describe(*kind).fingers) : value->fingers;
    std::optional<std::uint8_t> finger;
    if (arguments.values.size() > 1)
        finger = arguments.finger(arguments.values[1]);
    if (finger && *finger >= fingers)
        arguments.setError(fingers == 0
                               ? QStringLiteral("'%1' is not a value of a finger.").arg(name)
                               : QStringLiteral("The thumb root has no such value."));
    if (arguments.values.size() > 2)
        arguments.setError(QStringLiteral("There are too many values."));
    if (!arguments.error().isEmpty())
        return;
    if (kind)
        getParameter(tool, *kind, finger, answer);
    else
        getHandValue(tool, *value, finger, answer);
}

/// A hand may have a higher value, but a user cannot choose it.
double highestChoice(ParameterKind kind)
{
    if (kind == ParameterKind::SelfTestLevel)
        return MaxSelfTestLevel;
    return kind == ParameterKind::BeepSwitch ? MaxBeepSwitch : describe(kind).max;
}

/// The parameters that the arguments of set name, with their values.
std::map<ParameterKey, ParameterValue> parseAssignment(Arguments& arguments)
{
    std::map<ParameterKey, ParameterValue> wanted;
    QStringList texts = arguments.values;
    const QString name = texts.takeFirst();
    const bool isGains = name.compare(GainsName, Qt::CaseInsensitive) == 0;
    const auto kind = isGains ? std::optional(ParameterKind::P) : ParameterNames::parseKind(name);
    if (!kind) {
        arguments.setError(unknownName(name, true));
        return wanted;
    }
    std::optional<std::uint8_t> finger;
    const ParameterDescriptor& descriptor = describe(*kind);
    if (descriptor.isPerFinger()) {
        finger = arguments.finger(texts.isEmpty() ? QString() : texts.takeFirst());
        if (*finger >= descriptor.fingers)
            arguments.setError(QStringLiteral("The thumb root has no such value."));
    }
    if (isGains && texts.size() != qsizetype{GainKinds})
        arguments.setError(QStringLiteral("Gains are four numbers: P I D G."));
    for (std::size_t i = 0; i < (isGains ? GainKinds : 1); ++i) {
        const auto each = isGains ? static_cast<ParameterKind>(i) : *kind;
        QString error;
        const auto value = ParameterValues::parse(
            each, isGains ? QStringList{texts.value(static_cast<qsizetype>(i))} : texts, &error);
        if (value && value->constFirst() > highestChoice(each))
            error = QStringLiteral("expected an integer from 0 to %1").arg(highestChoice(each));
        if (error.isEmpty() && value)
            wanted[{each, finger}] = *value;
        else
            arguments.setError(QStringLiteral("%1: %2.").arg(name, error));
    }
    return wanted;
}

void set(Tool& tool, Arguments& arguments, Answer& answer)
{
    ParameterSet wanted;
    wanted.values = parseAssignment(arguments);
    if (!arguments.error().isEmpty())
        return;
    QList<ParameterKey> keys;
    for (const auto& [key, value] : wanted.values)
        keys.append(key);
    const bool writesCalibration = arguments.has("--with-calibration");
    if (keys.constFirst().kind == ParameterKind::Calibration && !writesCalibration) {
        answer.fail(ExitStatus::Usage,
                    QStringLiteral("A wrong calibration drives fingers into their stops. Writing "
                                   "it needs --with-calibration."));
        return;
    }
    if (keys.constFirst().kind == ParameterKind::Calibration && tool.hand().node() == AnyNode) {
        answer.fail(ExitStatus::Usage, QStringLiteral("A calibration is that of one hand; it is "
                                                      "not written through node 255."));
        return;
    }
    if (!tool.hand().open())
        return;
    ParameterReader reader(tool.hand().target(),
                           {.keys = keys, .forceSensing = true, .timeoutsInARow = 1});
    if (!runTask(tool, reader, answer))
        return;
    for (const ParameterKey& key : keys) {
        const auto type = tool.hand().target().adapter->protocolType();
        if (ParameterValues::isRepresentable(key.kind, wanted.values[key], type))
            continue;
        answer.fail(ExitStatus::Refused,
                    QStringLiteral("%1: the value is not representable over this protocol.")
                        .arg(key.name()));
        return;
    }
    ParameterWriter writer(tool.hand().target(), reader.parameters(), wanted, keys,
                           {.writeCalibration = writesCalibration,
                            .writeUnknownLimits = true,
                            .anyNode = tool.options().anyNode,
                            .timeoutsInARow = 1});
    if (runTask(tool, writer, answer))
        reportWriting(writer, answer);
    ValueList list(answer, arguments.values.constFirst(), keys.size() == 1);
    QJsonObject gains;
    for (const WrittenParameter& each : writer.results()) {
        if (!each.readBack)
            continue;
        const QJsonValue value = toJson(each.key.kind, *each.readBack);
        gains.insert(QLatin1String(describe(each.key.kind).name), value);
        if (keys.size() == 1)
            list.add(each.key.finger, value, ParameterValues::text(each.key.kind, *each.readBack));
    }
    if (keys.size() > 1)
        answer.data.insert(QStringLiteral("values"), gains);
}
} // namespace

std::vector<Command> parameterCommands()
{
    return {
        {"get",
         "Read a value",
         Effect::Reads,
         true,
         {{"name", 1, 1, "Name of a parameter or of another value of the hand"},
          {"finger", 0, 1, "Finger, 0 to 5 or its name; all fingers if omitted"}},
         {},
         get},
        {"set",
         "Write a parameter and check that the hand has kept it",
         Effect::Writes,
         true,
         {{"name", 1, 1, "Name of a parameter; \"gains\" stands for P, I, D and G"},
          {"values", 1, 16, "The finger, if the parameter is one of a finger, then the values"}},
         {{"--with-calibration", nullptr, 0, "Allow writing the calibration"}},
         set},
    };
}

} // namespace vanto
