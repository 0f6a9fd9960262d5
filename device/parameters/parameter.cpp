#include "parameter.h"

#include "modbusgain.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace vanto
{

namespace
{
constexpr const char* Context = "Parameters";
constexpr double MaxByte = 255;
constexpr double MaxWord = 65535;
constexpr double MaxGain = std::numeric_limits<float>::max();
constexpr std::size_t ForceFingers = 5; ///< the thumb root has no force sensor
constexpr int CalibrationValues = 15;
constexpr double MaxSelfTestLevel = 2; ///< full self-test
constexpr double MaxBeepSwitch = 1;    ///< all sounds

constexpr ParameterDescriptor gainDescriptor(ParameterKind kind, const char* name)
{
    return {kind, name, name, "", FingerCount, 1, -MaxGain, MaxGain, MaxGain, true, true};
}

using Kind = ParameterKind;
/// Level 2 of the self-test moves the hand when it is switched on. Position limits and calibration
/// decide where fingers stop.
constexpr std::array Descriptors{
    gainDescriptor(Kind::P, "P"),
    gainDescriptor(Kind::I, "I"),
    gainDescriptor(Kind::D, "D"),
    gainDescriptor(Kind::G, "G"),
    ParameterDescriptor{Kind::CurrentLimit, "currentLimit",
                        QT_TRANSLATE_NOOP("Parameters", "Current limit"), "mA", FingerCount, 1, 0,
                        MaxWord, MaxWord, false, true},
    ParameterDescriptor{Kind::ForceLimit, "forceLimit",
                        QT_TRANSLATE_NOOP("Parameters", "Force limit"), "mN", ForceFingers, 1, 0,
                        MaxWord, MaxWord, false, true},
    ParameterDescriptor{Kind::PositionLimits, "positionLimits",
                        QT_TRANSLATE_NOOP("Parameters", "Position limits"), "", FingerCount, 2, 0,
                        MaxWord, MaxWord, false, false},
    ParameterDescriptor{Kind::SelfTestLevel, "selfTestLevel",
                        QT_TRANSLATE_NOOP("Parameters", "Self-test level"), "", 0, 1, 0, MaxByte,
                        MaxSelfTestLevel, false, false},
    ParameterDescriptor{Kind::BeepSwitch, "beepSwitch",
                        QT_TRANSLATE_NOOP("Parameters", "Beep switch"), "", 0, 1, 0, MaxByte,
                        MaxBeepSwitch, false, true},
    ParameterDescriptor{Kind::Calibration, "calibration",
                        QT_TRANSLATE_NOOP("Parameters", "Calibration"), "", 0, CalibrationValues, 0,
                        MaxWord, MaxWord, false, false},
};

struct FingerName {
    const char* name;
    const char* displayText;
};
constexpr PerFinger<FingerName> FingerNames{{
    {"thumb", QT_TRANSLATE_NOOP("Parameters", "Thumb")},
    {"index", QT_TRANSLATE_NOOP("Parameters", "Index")},
    {"middle", QT_TRANSLATE_NOOP("Parameters", "Middle")},
    {"third", QT_TRANSLATE_NOOP("Parameters", "Third")},
    {"little", QT_TRANSLATE_NOOP("Parameters", "Little")},
    {"thumbRoot", QT_TRANSLATE_NOOP("Parameters", "Thumb root")},
}};

/// What remains of a name when case and separators do not matter.
QString simplifiedName(const QString& text)
{
    QString simple;
    for (const QChar c : text)
        if (!c.isSpace() && c != QLatin1Char('-') && c != QLatin1Char('_'))
            simple.append(c.toLower());
    return simple;
}

bool hasName(const QString& text, const char* name)
{
    return simplifiedName(text) == QString::fromLatin1(name).toLower();
}

QString numberText(ParameterKind kind, double number)
{
    return isGain(kind) ? QString::number(ParameterValues::shortest(static_cast<float>(number)),
                                          'g', QLocale::FloatingPointShortest)
                        : QString::number(static_cast<qint64>(number));
}

QString numbersText(ParameterKind kind, const ParameterValue& numbers)
{
    QStringList texts;
    for (const double number : numbers)
        texts.append(numberText(kind, number));
    return texts.join(QStringLiteral(", "));
}
} // namespace

QString ParameterKey::name() const
{
    const QString kindName = QString::fromLatin1(describe(kind).name);
    return finger ? kindName + QLatin1Char(' ') + ParameterNames::finger(*finger) : kindName;
}

QString ParameterKey::displayName() const
{
    const QString kindName = ParameterNames::displayName(kind);
    return finger ? kindName + QStringLiteral(", ") + ParameterNames::displayName(*finger)
                  : kindName;
}

QString ParameterDescriptor::check(const ParameterValue& value) const
{
    if (value.size() != valueCount)
        return QCoreApplication::translate(Context, "expected %n number(s), found %1", nullptr,
                                           valueCount)
            .arg(value.size());
    for (const double number : value) {
        const bool inRange = number >= min && number <= max; // false for NaN
        if (inRange && (isGain || number == std::floor(number)))
            continue;
        const QString found = QString::number(number, 'g', QLocale::FloatingPointShortest);
        return isGain ? QCoreApplication::translate(
                            Context, "expected a number of single precision, found %1")
                            .arg(found)
                      : QCoreApplication::translate(Context,
                                                    "expected an integer from %1 to %2, found %3")
                            .arg(min)
                            .arg(max)
                            .arg(found);
    }
    return {};
}

std::span<const ParameterDescriptor> parameterDescriptors()
{
    return Descriptors;
}

const ParameterDescriptor& describe(ParameterKind kind)
{
    return Descriptors.at(static_cast<std::size_t>(kind));
}

QList<ParameterKey> allParameterKeys()
{
    QList<ParameterKey> keys;
    for (const ParameterDescriptor& descriptor : Descriptors) {
        if (!descriptor.isPerFinger())
            keys.append(ParameterKey{descriptor.kind});
        for (std::uint8_t finger = 0; finger < descriptor.fingers; ++finger)
            keys.append(ParameterKey{descriptor.kind, finger});
    }
    return keys;
}

QString ParameterNames::finger(std::uint8_t finger)
{
    return QString::fromLatin1(FingerNames.at(finger).name);
}

QString ParameterNames::displayName(std::uint8_t finger)
{
    return QCoreApplication::translate(Context, FingerNames.at(finger).displayText);
}

QString ParameterNames::displayName(ParameterKind kind)
{
    return QCoreApplication::translate(Context, describe(kind).displayText);
}

std::optional<ParameterKind> ParameterNames::parseKind(const QString& text)
{
    for (const ParameterDescriptor& descriptor : Descriptors)
        if (hasName(text, descriptor.name))
            return descriptor.kind;
    return {};
}

std::optional<std::uint8_t> ParameterNames::parseFinger(const QString& text)
{
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger)
        if (text.trimmed() == QString::number(finger) || hasName(text, FingerNames[finger].name))
            return finger;
    return {};
}

std::optional<ParameterKey> ParameterNames::parseKey(const QString& text)
{
    const QString name = text.trimmed();
    // Either part of a name may contain blanks, so every separator is tried.
    for (qsizetype end = name.size(); end > 0; --end) {
        const bool isWhole = end == name.size();
        if (!isWhole && name[end] != QLatin1Char('.') && !name[end].isSpace())
            continue;
        const auto kind = parseKind(name.left(end));
        if (!kind)
            continue;
        const auto& descriptor = describe(*kind);
        if (isWhole && !descriptor.isPerFinger())
            return ParameterKey{*kind};
        const auto finger = isWhole ? std::nullopt : parseFinger(name.mid(end + 1));
        if (finger && *finger < descriptor.fingers)
            return ParameterKey{*kind, finger};
    }
    return {};
}

QString ParameterValues::text(ParameterKind kind, const ParameterValue& value)
{
    if (kind != ParameterKind::Calibration || value.size() != CalibrationValues)
        return numbersText(kind, value);
    constexpr qsizetype count = FingerCount;
    return QStringLiteral("start %1; end %2; thumb root %3")
        .arg(numbersText(kind, value.first(count)), numbersText(kind, value.mid(count, count)),
             numbersText(kind, value.mid(2 * count)));
}

double ParameterValues::shortest(float gain)
{
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), gain);
    double number = gain;
    std::from_chars(digits.data(), written.ptr, number);
    // The shortest form of the largest float is a little larger than that.
    return std::abs(number) <= MaxGain && static_cast<float>(number) == gain ? number
                                                                             : double{gain};
}

std::optional<ParameterValue> ParameterValues::parse(ParameterKind kind, const QStringList& texts,
                                                     QString* error)
{
    ParameterValue value;
    for (QString text : texts) {
        bool isNumber = false;
        const double number = text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
        if (!isNumber) {
            *error = QCoreApplication::translate(Context, "'%1' is not a number").arg(text);
            return {};
        }
        value.append(number);
    }
    *error = describe(kind).check(value);
    if (!error->isEmpty())
        return {};
    if (isGain(kind))
        value.first() = static_cast<float>(value.first());
    return value;
}

bool ParameterValues::equal(ParameterKind kind, const ParameterValue& one,
                            const ParameterValue& other, PROTOCOL_TYPE protocol)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), [=](double a, double b) {
        if (!isGain(kind))
            return a == b;
        const auto first = static_cast<float>(a);
        const auto second = static_cast<float>(b);
        if (protocol == PROTOCOL_TYPE_SERIALCTRL)
            return first == second;
        // Registers would wrap around outside of their range.
        return isRepresentable(kind, {a}, protocol) == isRepresentable(kind, {b}, protocol) &&
               gainToRegister(first) == gainToRegister(second);
    });
}

bool ParameterValues::isRepresentable(ParameterKind kind, const ParameterValue& value,
                                      PROTOCOL_TYPE protocol)
{
    const double maxKnown = describe(kind).maxKnown;
    if (std::ranges::any_of(value, [maxKnown](double number) { return number > maxKnown; }))
        return false;
    if (!isGain(kind) || protocol == PROTOCOL_TYPE_SERIALCTRL)
        return true;
    return std::ranges::all_of(value, [](double number) {
        const auto gain = static_cast<float>(number);
        return gain >= 0 && gain <= MaxModbusGain;
    });
}

} // namespace vanto
