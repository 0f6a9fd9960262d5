#include "properties.h"

#include "numbers.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <variant>

namespace vanto::simulator
{
namespace
{
constexpr double maxByte = 0xFF;
constexpr double maxWord = 0xFFFF;
constexpr double maxU32 = 0xFFFFFFFF;
constexpr double minAngle = -32768;
constexpr double maxAngle = 32767;
constexpr double maxGain = 1e6;

// A finger of a hand, at a time; the finger is 0 where a value is the whole hand's.
struct PropertyPlace {
    Hand& hand;
    std::size_t finger;
    Moment now;

    Finger& asked() const { return hand.fingers[finger]; }
};

struct Property {
    const char* name;
    bool ofFinger;
    double min;
    double max;
    double (*get)(const PropertyPlace&);
    void (*set)(const PropertyPlace&, double);       // null: cannot be set
    void (*release)(const PropertyPlace&) = nullptr; // for the value "auto"
};

template<auto Member>
constexpr Property handValue(const char* name, double max)
{
    using Value = std::remove_reference_t<decltype(std::declval<Hand&>().*Member)>;
    return {name,
            false,
            0,
            max,
            [](const PropertyPlace& p) { return static_cast<double>(p.hand.*Member); },
            [](const PropertyPlace& p, double v) { p.hand.*Member = static_cast<Value>(v); }};
}

template<auto Member>
constexpr Property fingerValue(const char* name, double max)
{
    using Value = std::remove_reference_t<decltype(std::declval<Finger&>().*Member)>;
    return {name,
            true,
            0,
            max,
            [](const PropertyPlace& p) { return static_cast<double>(p.asked().*Member); },
            [](const PropertyPlace& p, double v) { p.asked().*Member = static_cast<Value>(v); }};
}

template<std::size_t Gain>
constexpr Property pidGain(const char* name)
{
    return {name,
            true,
            -maxGain,
            maxGain,
            [](const PropertyPlace& p) { return static_cast<double>(p.asked().pid[Gain]); },
            [](const PropertyPlace& p, double v) { p.asked().pid[Gain] = static_cast<float>(v); }};
}

// Setting a position puts the finger there, at rest.
template<Unit U>
constexpr Property positionIn(const char* name, double min, double max)
{
    return {name,
            true,
            min,
            max,
            [](const PropertyPlace& p) {
                return static_cast<double>(p.hand.position(U, p.finger, p.now));
            },
            [](const PropertyPlace& p, double v) {
                p.hand.placeAt(U, p.finger, static_cast<int>(v), p.now);
            }};
}

constexpr Property properties[] = {
    handValue<&Hand::id>("id", maxByte),
    handValue<&Hand::powered>("powered", 1),
    handValue<&Hand::selfTestLevel>("selftest", maxByte),
    handValue<&Hand::beepSwitch>("beepswitch", maxByte),
    {"buttons", false, 0, maxByte,
     [](const PropertyPlace& p) { return static_cast<double>(p.hand.buttonCount); },
     [](const PropertyPlace& p, double v) {
         p.hand.setButtonCount(static_cast<quint8>(v), p.now);
     }},
    {"calibrating", false, 0, 1,
     [](const PropertyPlace& p) { return p.hand.isCalibrating(p.now) ? 1.0 : 0.0; }, nullptr},
    {"stage", false, 0, maxByte,
     [](const PropertyPlace& p) { return static_cast<double>(p.hand.calibrationStage()); },
     nullptr},
    handValue<&Hand::rebootTime>("reboot-time", maxWord),
    handValue<&Hand::error>("error", maxByte),
    handValue<&Hand::voltage>("voltage", maxWord),
    handValue<&Hand::beeps>("beeps", maxU32),
    handValue<&Hand::beepDuration>("beep-duration", maxWord),
    handValue<&Hand::resets>("resets", maxU32),
    handValue<&Hand::inits>("inits", maxU32),
    handValue<&Hand::calibrations>("calibrations", maxU32),
    {"revision", false, 0, maxWord,
     [](const PropertyPlace& p) { return static_cast<double>(p.hand.traits.firmware.revision); },
     [](const PropertyPlace& p, double v) {
         p.hand.traits.firmware.revision = static_cast<quint16>(v);
     }},
    {"current", true, 0, maxWord,
     [](const PropertyPlace& p) { return static_cast<double>(p.hand.current(p.finger, p.now)); },
     [](const PropertyPlace& p, double v) { p.asked().pinnedCurrent = static_cast<quint16>(v); },
     [](const PropertyPlace& p) { p.asked().pinnedCurrent.reset(); }},
    {"force", true, 0, maxWord,
     [](const PropertyPlace& p) { return static_cast<double>(p.hand.force(p.finger, 0, p.now)); },
     [](const PropertyPlace& p, double v) { p.asked().pinnedForce = static_cast<quint16>(v); },
     [](const PropertyPlace& p) { p.asked().pinnedForce.reset(); }},
    positionIn<Unit::Logical>("position", 0, maxWord),
    positionIn<Unit::Raw>("raw", 0, maxWord),
    positionIn<Unit::Angle>("angle", minAngle, maxAngle),
    {"target", true, 0, maxWord,
     [](const PropertyPlace& p) { return static_cast<double>(p.asked().motion.target()); },
     [](const PropertyPlace& p, double v) {
         p.asked().motion.retarget(static_cast<quint16>(v), p.now);
     }},
    {"moving", true, 0, 1,
     [](const PropertyPlace& p) { return p.asked().motion.isMoving(p.now) ? 1.0 : 0.0; }, nullptr},
    pidGain<0>("pid-p"),
    pidGain<1>("pid-i"),
    pidGain<2>("pid-d"),
    pidGain<3>("pid-g"),
    fingerValue<&Finger::currentLimit>("current-limit", maxWord),
    fingerValue<&Finger::forceLimit>("force-limit", maxWord),
    {"start", true, 0, maxWord,
     [](const PropertyPlace& p) { return static_cast<double>(p.asked().raw.atZero); },
     [](const PropertyPlace& p, double v) { p.asked().raw.atZero = static_cast<int>(v); }},
    {"end", true, 0, maxWord,
     [](const PropertyPlace& p) { return static_cast<double>(p.asked().raw.atFull); },
     [](const PropertyPlace& p, double v) { p.asked().raw.atFull = static_cast<int>(v); }},
};

QString failure(const QString& reason)
{
    return QStringLiteral("error: ") + reason;
}

QString textOf(double value)
{
    constexpr int floatDigits = 7;
    if (value == std::floor(value) && std::abs(value) <= maxU32)
        return QString::number(static_cast<qint64>(value));
    return QString::number(value, 'g', floatDigits);
}

std::optional<double> parseValue(const QString& text, const Property& property)
{
    const bool whole = property.max != maxGain;
    if (whole) {
        const auto min = static_cast<qint64>(property.min);
        const std::optional<qint64> value =
            parseInteger(text, min, static_cast<qint64>(property.max));
        return value ? std::optional<double>(static_cast<double>(*value)) : std::nullopt;
    }
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    const bool valid = isNumber && value >= property.min && value <= property.max;
    return valid ? std::optional<double>(value) : std::nullopt;
}

struct Selection {
    const Property* property;
    std::size_t finger;
};

// Takes NAME [FINGER] from the words and wants `valueCount` more; a QString is what is wrong.
std::variant<Selection, QString> select(const QStringList& words, qsizetype valueCount)
{
    const QString name = words.value(0);
    const auto* const property = std::ranges::find_if(
        properties, [&name](const Property& p) { return name == QLatin1String(p.name); });
    if (property == std::end(properties))
        return QStringLiteral("unknown name '%1'").arg(name);
    if (words.size() != 1 + (property->ofFinger ? 1 : 0) + valueCount) {
        return QStringLiteral("%1 takes%2%3")
            .arg(name, property->ofFinger ? QStringLiteral(" a finger") : QString(),
                 valueCount > 0 ? QStringLiteral(" a value") : QStringLiteral(" no value"));
    }
    if (!property->ofFinger)
        return Selection{property, 0};
    const std::optional<qint64> finger = parseInteger(words.at(1), 0, fingerCount - 1);
    if (!finger)
        return QStringLiteral("'%1' is no finger (0 to 5)").arg(words.at(1));
    return Selection{property, static_cast<std::size_t>(*finger)};
}

QStringList names(bool ofFinger)
{
    QStringList found;
    for (const Property& property : properties) {
        if (property.ofFinger == ofFinger)
            found.append(QLatin1String(property.name));
    }
    return found;
}
} // namespace

QString readProperty(Hand& hand, const QStringList& words, Moment now)
{
    const auto selected = select(words, 0);
    if (const QString* const error = std::get_if<QString>(&selected))
        return failure(*error);
    const Selection& selection = std::get<Selection>(selected);
    return QStringLiteral("ok ") + textOf(selection.property->get({hand, selection.finger, now}));
}

QString writeProperty(Hand& hand, const QStringList& words, Moment now)
{
    const auto selected = select(words, 1);
    if (const QString* const error = std::get_if<QString>(&selected))
        return failure(*error);
    const auto& [property, finger] = std::get<Selection>(selected);
    const PropertyPlace place{hand, finger, now};
    const QString& text = words.last();
    if (property->set == nullptr)
        return failure(QStringLiteral("%1 cannot be set").arg(words.first()));
    if (text == QLatin1String("auto") && property->release != nullptr) {
        property->release(place);
        return QStringLiteral("ok");
    }
    const std::optional<double> value = parseValue(text, *property);
    if (!value) {
        return failure(QStringLiteral("'%1' is no number from %2 to %3")
                           .arg(text, textOf(property->min), textOf(property->max)));
    }
    property->set(place, *value);
    return QStringLiteral("ok");
}

QStringList handPropertyNames()
{
    return names(false);
}

QStringList fingerPropertyNames()
{
    return names(true);
}

} // namespace vanto::simulator
