#include "parameterfileparser.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace vanto
{

namespace
{
constexpr QLatin1String KindKey("kind");
constexpr QLatin1String VersionKey("version");
constexpr QLatin1String HandKey("hand");
constexpr QLatin1String FingersKey("fingers");
constexpr qsizetype MaxShown = 40; ///< characters of a wrong value in a message

QString reasonText(const char* english)
{
    return QCoreApplication::translate("ParameterFile", english);
}

QString member(const QString& object, const QString& key)
{
    return object + QLatin1Char('.') + key;
}

/// The JSON text of a value, for a message.
QString shownValue(const QJsonValue& value)
{
    if (value.isObject())
        return QStringLiteral("{...}");
    if (value.isArray())
        return QStringLiteral("[...]");
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    const QString text = QString::fromUtf8(array.mid(1, array.size() - 2));
    return text.size() > MaxShown ? text.left(MaxShown) + QStringLiteral("...") : text;
}

QString foundText(const char* english, const QJsonValue& value)
{
    return reasonText(english).arg(shownValue(value));
}

/// Numbers of a version "1.4.7", each with its maximum; none if the text is anything else.
template<std::size_t Count>
std::optional<std::array<uint, Count>> versionNumbers(const QString& text,
                                                      const std::array<uint, Count>& maxima)
{
    static const QRegularExpression digits(QStringLiteral("^[0-9]{1,5}$"));
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != static_cast<qsizetype>(Count))
        return {};
    std::array<uint, Count> numbers{};
    for (std::size_t i = 0; i < Count; ++i) {
        const QString& part = parts[static_cast<qsizetype>(i)];
        numbers[i] = part.toUInt();
        if (!digits.match(part).hasMatch() || numbers[i] > maxima[i])
            return {};
    }
    return numbers;
}

/// Hexadecimal words of `digits` digits each; none if the text is anything else.
template<std::size_t Count>
std::optional<std::array<std::uint32_t, Count>> hexWords(const QString& text, qsizetype digits)
{
    static const QRegularExpression hex(QStringLiteral("^[0-9A-Fa-f]*$"));
    if (text.size() != digits * static_cast<qsizetype>(Count) || !hex.match(text).hasMatch())
        return {};
    std::array<std::uint32_t, Count> words{};
    for (std::size_t i = 0; i < Count; ++i)
        words[i] = text.mid(static_cast<qsizetype>(i) * digits, digits).toUInt(nullptr, 16);
    return words;
}

constexpr int MaxYear = 9999;
constexpr uint MaxByte = 0xFF;
constexpr uint MaxWord = 0xFFFF;

bool setNode(HandFacts& hand, double number)
{
    hand.node = static_cast<std::uint8_t>(std::clamp<double>(number, 0, MaxByte));
    return *hand.node == number;
}

bool setProtocol(HandFacts& hand, const QString& text)
{
    for (const PROTOCOL_TYPE type : {PROTOCOL_TYPE_SERIALCTRL, PROTOCOL_TYPE_MODBUS_RTU}) {
        hand.protocolType = type;
        if (hand.protocolName() == text)
            return true;
    }
    return false;
}

bool setProtocolVersion(HandFacts& hand, const QString& text)
{
    const auto n = versionNumbers<2>(text, {MaxByte, MaxByte});
    if (n)
        hand.protocol = {static_cast<std::uint8_t>((*n)[0]), static_cast<std::uint8_t>((*n)[1])};
    return n.has_value();
}

bool setFirmware(HandFacts& hand, const QString& text)
{
    const auto n = versionNumbers<3>(text, {MaxByte, MaxByte, MaxWord});
    if (n)
        hand.firmware = {static_cast<std::uint8_t>((*n)[0]), static_cast<std::uint8_t>((*n)[1]),
                         static_cast<std::uint16_t>((*n)[2])};
    return n.has_value();
}

HandIdentity::Hardware& hardwareOf(HandFacts& hand)
{
    if (!hand.hardware)
        hand.hardware = HandIdentity::Hardware{};
    return *hand.hardware;
}

bool setHardware(HandFacts& hand, const QString& text)
{
    const auto words = hexWords<2>(text, 2);
    if (words) {
        hardwareOf(hand).type = static_cast<std::uint8_t>((*words)[0]);
        hardwareOf(hand).version = static_cast<std::uint8_t>((*words)[1]);
    }
    return words.has_value();
}

bool setBootLoader(HandFacts& hand, const QString& text)
{
    const auto n = versionNumbers<2>(text, {MaxByte, MaxByte});
    if (n)
        hardwareOf(hand).bootLoader = static_cast<std::uint16_t>((*n)[0] * 0x100U + (*n)[1]);
    return n.has_value();
}

bool setUid(HandFacts& hand, const QString& text)
{
    hand.uid = hexWords<3>(text, 8);
    return hand.uid.has_value();
}

struct HandText {
    const char* key;
    bool (*set)(HandFacts&, const QString&);
};
constexpr std::array HandTexts{
    HandText{"protocol", setProtocol},     HandText{"protocolVersion", setProtocolVersion},
    HandText{"firmware", setFirmware},     HandText{"hardware", setHardware},
    HandText{"bootLoader", setBootLoader}, HandText{"uid", setUid},
};

/// "line 3, offset 57"
QString place(const QByteArray& bytes, qsizetype offset)
{
    const qsizetype line = 1 + bytes.first(std::min(offset, bytes.size())).count('\n');
    return reasonText(QT_TRANSLATE_NOOP("ParameterFile", "line %1, offset %2"))
        .arg(line)
        .arg(offset);
}
} // namespace

ParameterFileParser::ParameterFileParser(const QByteArray& bytes)
{
    if (!parseDocument(bytes))
        m_content.parameters = {};
}

bool ParameterFileParser::parseDocument(const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return fail({}, reasonText(QT_TRANSLATE_NOOP("ParameterFile", "The file is empty.")));
    if (bytes.size() > ParameterFile::MaxSize)
        return fail(
            {}, reasonText(QT_TRANSLATE_NOOP("ParameterFile", "The file is larger than 1 MiB.")));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return fail(
            {}, reasonText(QT_TRANSLATE_NOOP("ParameterFile", "This is not valid JSON (%1): %2"))
                    .arg(place(bytes, error.offset), error.errorString()));
    return checkKind(document.object()) &&
           parseMembers({}, document.object(), &ParameterFileParser::parseMember);
}

bool ParameterFileParser::checkKind(const QJsonObject& root)
{
    if (root.contains(QStringLiteral("sequences")))
        return fail({}, reasonText(QT_TRANSLATE_NOOP("ParameterFile",
                                                     "This is a sequence, not hand parameters.")));
    if (root.value(KindKey).toString() != ParameterFile::Kind)
        return fail({}, reasonText(QT_TRANSLATE_NOOP(
                                       "ParameterFile",
                                       "This is not a file of hand parameters: \"kind\" is not "
                                       "\"%1\"."))
                            .arg(ParameterFile::Kind));
    const QJsonValue version = root.value(VersionKey);
    const double number = version.toDouble();
    if (number > ParameterFile::SchemaVersion)
        return fail(VersionKey,
                    reasonText(QT_TRANSLATE_NOOP("ParameterFile",
                                                 "the file comes from a newer program (version %1, "
                                                 "this program reads version %2)"))
                        .arg(number)
                        .arg(ParameterFile::SchemaVersion));
    if (number == ParameterFile::SchemaVersion)
        return true;
    return fail(VersionKey,
                reasonText(QT_TRANSLATE_NOOP("ParameterFile", "expected %1, found %2"))
                    .arg(QString::number(ParameterFile::SchemaVersion), shownValue(version)));
}

bool ParameterFileParser::parseMember(const QString& key, const QJsonValue& json)
{
    if (key == KindKey || key == VersionKey)
        return true;
    if (key == QLatin1String("tool"))
        return toText(key, json, parameters().toolVersion);
    if (key == QLatin1String("comment"))
        return toText(key, json, parameters().comment);
    if (key == QLatin1String("time"))
        return parseTime(key, json);
    if (key == HandKey)
        return parseHandFacts(key, json);
    if (key == FingersKey)
        return parseMembers(key, json, &ParameterFileParser::parseFinger);
    return parseHandParameter(key, json);
}

bool ParameterFileParser::parseHandParameter(const QString& key, const QJsonValue& json)
{
    for (const ParameterDescriptor& descriptor : parameterDescriptors()) {
        if (descriptor.isPerFinger() || key != QLatin1String(descriptor.name))
            continue;
        if (descriptor.kind == ParameterKind::Calibration) {
            QJsonObject object;
            return toObject(key, json, object) && parseCalibration(object);
        }
        ParameterValue value;
        return toNumbers(key, json, descriptor.valueCount, value) &&
               store(key, {descriptor.kind}, value);
    }
    return failUnknown(key);
}

bool ParameterFileParser::parseTime(const QString& path, const QJsonValue& json)
{
    QString text;
    if (!toText(path, json, text))
        return false;
    parameters().time = QDateTime::fromString(text, Qt::ISODate).toUTC();
    const int year = parameters().time.date().year(); // of four digits, also after the conversion
    return (parameters().time.isValid() && year >= 1 && year <= MaxYear) ||
           fail(path,
                foundText(QT_TRANSLATE_NOOP("ParameterFile", "expected a time such as "
                                                             "\"2026-11-22T06:25:17Z\", found %1"),
                          json));
}

/// A boot loader alone does not say what the hardware is.
bool ParameterFileParser::parseHandFacts(const QString& path, const QJsonValue& json)
{
    if (!parseMembers(path, json, &ParameterFileParser::parseHand))
        return false;
    if (!json.toObject().contains(QLatin1String("hardware")))
        parameters().hand.hardware.reset();
    return true;
}

bool ParameterFileParser::parseHand(const QString& key, const QJsonValue& json)
{
    const QString path = member(HandKey, key);
    if (key == QLatin1String("node")) {
        ParameterValue node;
        return toNumbers(path, json, 1, node) &&
               (setNode(parameters().hand, node.first()) ||
                fail(path, foundText(QT_TRANSLATE_NOOP("ParameterFile",
                                                       "expected an integer from 0 to 255, "
                                                       "found %1"),
                                     json)));
    }
    const auto* const entry = std::ranges::find_if(
        HandTexts, [&key](const HandText& text) { return key == QLatin1String(text.key); });
    if (entry == HandTexts.end())
        return failUnknown(path);
    QString text;
    return toText(path, json, text) &&
           (entry->set(parameters().hand, text) ||
            fail(path, foundText(QT_TRANSLATE_NOOP("ParameterFile", "%1 is not valid"), json)));
}

bool ParameterFileParser::parseFinger(const QString& name, const QJsonValue& json)
{
    const QString path = member(FingersKey, name);
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        if (name != ParameterNames::finger(finger))
            continue;
        QJsonObject values;
        if (!toObject(path, json, values))
            return false;
        for (auto value = values.begin(); value != values.end(); ++value)
            if (!parseFingerParameter(finger, value.key(), *value))
                return false;
        return true;
    }
    return fail(path, reasonText(QT_TRANSLATE_NOOP("ParameterFile", "there is no such finger")));
}

bool ParameterFileParser::parseFingerParameter(std::uint8_t finger, const QString& name,
                                               const QJsonValue& json)
{
    const QString path = member(member(FingersKey, ParameterNames::finger(finger)), name);
    for (const ParameterDescriptor& descriptor : parameterDescriptors()) {
        if (finger >= descriptor.fingers || name != QLatin1String(descriptor.name))
            continue;
        ParameterValue value;
        return toNumbers(path, json, descriptor.valueCount, value) &&
               store(path, {descriptor.kind, finger}, value);
    }
    return failUnknown(path);
}

/// Always whole: a part of a calibration would be combined with that of another one.
bool ParameterFileParser::parseCalibration(const QJsonObject& calibration)
{
    const QString object = QString::fromLatin1(describe(ParameterKind::Calibration).name);
    const std::pair<QString, qsizetype> parts[] = {{QStringLiteral("start"), FingerCount},
                                                   {QStringLiteral("end"), FingerCount},
                                                   {QStringLiteral("thumbRoot"), ThumbRootCount}};
    ParameterValue value;
    QJsonObject rest = calibration;
    for (const auto& [key, count] : parts) {
        ParameterValue numbers;
        const QString path = member(object, key);
        if (!toNumbers(path, rest.take(key), count, numbers))
            return false;
        const auto valid = [](double number) {
            return describe(ParameterKind::CurrentLimit).check({number}).isEmpty();
        };
        const auto wrong = std::ranges::find_if_not(numbers, valid);
        if (wrong != numbers.end())
            return fail(path, describe(ParameterKind::CurrentLimit).check({*wrong}));
        value.append(numbers);
    }
    return rest.isEmpty() ? store(object, {ParameterKind::Calibration}, value)
                          : failUnknown(member(object, rest.begin().key()));
}

bool ParameterFileParser::parseMembers(const QString& path, const QJsonValue& json,
                                       MemberParser parse)
{
    QJsonObject object;
    if (!toObject(path, json, object))
        return false;
    for (auto entry = object.begin(); entry != object.end(); ++entry)
        if (!(this->*parse)(entry.key(), *entry))
            return false;
    return true;
}

bool ParameterFileParser::toObject(const QString& path, const QJsonValue& json, QJsonObject& object)
{
    object = json.toObject();
    return json.isObject() ||
           fail(path, foundText(QT_TRANSLATE_NOOP("ParameterFile", "expected an object, found %1"),
                                json));
}

bool ParameterFileParser::toText(const QString& path, const QJsonValue& json, QString& text)
{
    text = json.toString();
    return json.isString() ||
           fail(path,
                foundText(QT_TRANSLATE_NOOP("ParameterFile", "expected a text, found %1"), json));
}

/// One number stands by itself, several are an array.
bool ParameterFileParser::toNumbers(const QString& path, const QJsonValue& json, qsizetype count,
                                    ParameterValue& numbers)
{
    const QJsonArray array = count == 1 ? QJsonArray{json} : json.toArray();
    if (array.size() != count)
        return fail(path,
                    reasonText(QT_TRANSLATE_NOOP("ParameterFile",
                                                 "expected an array of %1 numbers, found %2"))
                        .arg(QString::number(count),
                             json.isArray() ? QString::number(array.size()) : shownValue(json)));
    for (const QJsonValue number : array) {
        if (!number.isDouble())
            return fail(path,
                        foundText(QT_TRANSLATE_NOOP("ParameterFile", "expected a number, found %1"),
                                  number));
        numbers.append(number.toDouble());
    }
    return true;
}

bool ParameterFileParser::store(const QString& path, const ParameterKey& key, ParameterValue value)
{
    const QString error = describe(key.kind).check(value);
    if (!error.isEmpty())
        return fail(path, error);
    if (isGain(key.kind)) // the sum has no negative zero, which a file cannot hold
        value.first() = static_cast<float>(value.first()) + 0.0F;
    parameters().values[key] = value;
    return true;
}

bool ParameterFileParser::failUnknown(const QString& path)
{
    return fail(path, reasonText(QT_TRANSLATE_NOOP("ParameterFile", "unknown key")));
}

bool ParameterFileParser::fail(const QString& path, const QString& reason)
{
    m_content.error = path.isEmpty() ? reason : path + QStringLiteral(": ") + reason;
    return false;
}

} // namespace vanto
