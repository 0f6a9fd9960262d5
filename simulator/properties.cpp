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
constexpr double MaxByte = 0xFF;
constexpr double MaxWord = 0xFFFF;
constexpr double MaxU32 = 0xFFFFFFFF;
constexpr double MinAngle = -32768;
constexpr double MaxAngle = 32767;
constexpr double MaxGain = 1e6;

/// `index` is the finger, or 0 for properties of the whole hand.
struct Context {
    Hand& hand;
    std::size_t index;
    TimePoint now;

    Finger& finger() const { return hand.fingers[index]; }
};

struct Property {
    const char* name;
    bool isPerFinger;
    double min;
    double max;
    double (*get)(const Context&);
    void (*set)(const Context&, double);     ///< null: read-only
    void (*reset)(const Context&) = nullptr; ///< for the value "auto"
};

template<auto Member>
constexpr Property handValue(const char* name, double max)
{
    using Value = std::remove_reference_t<decltype(std::declval<Hand&>().*Member)>;
    return {name,
            false,
            0,
            max,
            [](const Context& c) { return static_cast<double>(c.hand.*Member); },
            [](const Context& c, double v) { c.hand.*Member = static_cast<Value>(v); }};
}

template<auto Member>
constexpr Property fingerValue(const char* name, double max)
{
    using Value = std::remove_reference_t<decltype(std::declval<Finger&>().*Member)>;
    return {name,
            true,
            0,
            max,
            [](const Context& c) { return static_cast<double>(c.finger().*Member); },
            [](const Context& c, double v) { c.finger().*Member = static_cast<Value>(v); }};
}

template<std::size_t Gain>
constexpr Property pidGain(const char* name)
{
    return {name,
            true,
            -MaxGain,
            MaxGain,
            [](const Context& c) { return static_cast<double>(c.finger().pid[Gain]); },
            [](const Context& c, double v) { c.finger().pid[Gain] = static_cast<float>(v); }};
}

template<std::size_t Preset>
constexpr Property thumbRootPreset(const char* name)
{
    return {name,
            false,
            0,
            MaxWord,
            [](const Context& c) { return static_cast<double>(c.hand.thumbRootPresets[Preset]); },
            [](const Context& c, double v) {
                c.hand.thumbRootPresets[Preset] = static_cast<std::uint16_t>(v);
            }};
}

/// Setting a position moves the finger there at once.
template<Unit U>
constexpr Property positionIn(const char* name, double min, double max)
{
    return {
        name,
        true,
        min,
        max,
        [](const Context& c) { return static_cast<double>(c.hand.position(U, c.index, c.now)); },
        [](const Context& c, double v) { c.hand.placeAt(U, c.index, static_cast<int>(v), c.now); }};
}

constexpr Property Properties[] = {
    handValue<&Hand::id>("id", MaxByte),
    handValue<&Hand::powered>("powered", 1),
    handValue<&Hand::selfTestLevel>("selftest", MaxByte),
    handValue<&Hand::beepSwitch>("beepswitch", MaxByte),
    {"buttons", false, 0, MaxByte,
     [](const Context& c) { return static_cast<double>(c.hand.buttonCount); },
     [](const Context& c, double v) {
         c.hand.setButtonCount(static_cast<std::uint8_t>(v), c.now);
     }},
    {"calibrating", false, 0, 1,
     [](const Context& c) { return c.hand.isCalibrating(c.now) ? 1.0 : 0.0; }, nullptr},
    {"stage", false, 0, MaxByte,
     [](const Context& c) { return static_cast<double>(c.hand.calibrationStage()); }, nullptr},
    handValue<&Hand::rebootTime>("reboot-time", MaxWord),
    thumbRootPreset<0>("preset-1"),
    thumbRootPreset<1>("preset-2"),
    thumbRootPreset<2>("preset-3"),
    {"listening", false, 0, 1,
     [](const Context& c) { return c.hand.isListening(c.now) ? 1.0 : 0.0; }, nullptr},
    handValue<&Hand::error>("error", MaxByte),
    handValue<&Hand::voltage>("voltage", MaxWord),
    handValue<&Hand::beeps>("beeps", MaxU32),
    handValue<&Hand::beepDuration>("beep-duration", MaxWord),
    handValue<&Hand::resets>("resets", MaxU32),
    handValue<&Hand::inits>("inits", MaxU32),
    handValue<&Hand::calibrations>("calibrations", MaxU32),
    {"revision", false, 0, MaxWord,
     [](const Context& c) { return static_cast<double>(c.hand.traits.firmware.revision); },
     [](const Context& c, double v) {
         c.hand.traits.firmware.revision = static_cast<std::uint16_t>(v);
     }},
    {"current", true, 0, MaxWord,
     [](const Context& c) { return static_cast<double>(c.hand.current(c.index, c.now)); },
     [](const Context& c, double v) { c.finger().fixedCurrent = static_cast<std::uint16_t>(v); },
     [](const Context& c) { c.finger().fixedCurrent.reset(); }},
    {"force", true, 0, MaxWord,
     [](const Context& c) { return static_cast<double>(c.hand.force(c.index, 0, c.now)); },
     [](const Context& c, double v) { c.finger().fixedForce = static_cast<std::uint16_t>(v); },
     [](const Context& c) { c.finger().fixedForce.reset(); }},
    positionIn<Unit::Logical>("position", 0, MaxWord),
    positionIn<Unit::Raw>("raw", 0, MaxWord),
    positionIn<Unit::Angle>("angle", MinAngle, MaxAngle),
    {"target", true, 0, MaxWord,
     [](const Context& c) { return static_cast<double>(c.finger().motion.target()); },
     [](const Context& c, double v) {
         c.finger().motion.retarget(static_cast<std::uint16_t>(v), c.now);
     }},
    {"moving", true, 0, 1,
     [](const Context& c) { return c.finger().motion.isMoving(c.now) ? 1.0 : 0.0; }, nullptr},
    {"stopped", true, 0, 1,
     [](const Context& c) { return c.finger().motion.isStopped() ? 1.0 : 0.0; }, nullptr},
    pidGain<0>("pid-p"),
    pidGain<1>("pid-i"),
    pidGain<2>("pid-d"),
    pidGain<3>("pid-g"),
    fingerValue<&Finger::currentLimit>("current-limit", MaxWord),
    fingerValue<&Finger::forceLimit>("force-limit", MaxWord),
    {"start", true, 0, MaxWord,
     [](const Context& c) { return static_cast<double>(c.finger().raw.atZero); },
     [](const Context& c, double v) { c.finger().raw.atZero = static_cast<int>(v); }},
    {"end", true, 0, MaxWord,
     [](const Context& c) { return static_cast<double>(c.finger().raw.atFull); },
     [](const Context& c, double v) { c.finger().raw.atFull = static_cast<int>(v); }},
};

QString failure(const QString& reason)
{
    return QStringLiteral("error: ") + reason;
}

QString formatNumber(double value)
{
    constexpr int floatDigits = 7;
    if (value == std::floor(value) && std::abs(value) <= MaxU32)
        return QString::number(static_cast<std::int64_t>(value));
    return QString::number(value, 'g', floatDigits);
}

std::optional<double> parseValue(const QString& text, const Property& property)
{
    const bool isInteger = property.max != MaxGain;
    if (isInteger) {
        const auto min = static_cast<std::int64_t>(property.min);
        const std::optional<std::int64_t> value =
            parseInteger(text, min, static_cast<std::int64_t>(property.max));
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

/// Parses NAME [FINGER], followed by `valueCount` further words. Returns an error as a QString.
std::variant<Selection, QString> selectProperty(const QStringList& words, qsizetype valueCount)
{
    const QString name = words.value(0);
    const auto* const property = std::ranges::find_if(
        Properties, [&name](const Property& p) { return name == QLatin1String(p.name); });
    if (property == std::end(Properties))
        return QStringLiteral("unknown name '%1'").arg(name);
    if (words.size() != 1 + (property->isPerFinger ? 1 : 0) + valueCount) {
        return QStringLiteral("%1 takes%2%3")
            .arg(name, property->isPerFinger ? QStringLiteral(" a finger") : QString(),
                 valueCount > 0 ? QStringLiteral(" a value") : QStringLiteral(" no value"));
    }
    if (!property->isPerFinger)
        return Selection{property, 0};
    const std::optional<std::int64_t> finger = parseInteger(words.at(1), 0, FingerCount - 1);
    if (!finger)
        return QStringLiteral("'%1' is not a finger (0 to 5)").arg(words.at(1));
    return Selection{property, static_cast<std::size_t>(*finger)};
}

QStringList propertyNames(bool isPerFinger)
{
    QStringList found;
    for (const Property& property : Properties) {
        if (property.isPerFinger == isPerFinger)
            found.append(QLatin1String(property.name));
    }
    return found;
}
} // namespace

QString readProperty(Hand& hand, const QStringList& words, TimePoint now)
{
    const auto selected = selectProperty(words, 0);
    if (const QString* const error = std::get_if<QString>(&selected))
        return failure(*error);
    const Selection& selection = std::get<Selection>(selected);
    return QStringLiteral("ok ") +
           formatNumber(selection.property->get({hand, selection.finger, now}));
}

QString writeProperty(Hand& hand, const QStringList& words, TimePoint now)
{
    const auto selected = selectProperty(words, 1);
    if (const QString* const error = std::get_if<QString>(&selected))
        return failure(*error);
    const auto& [property, finger] = std::get<Selection>(selected);
    const Context context{hand, finger, now};
    const QString& text = words.last();
    if (property->set == nullptr)
        return failure(QStringLiteral("%1 cannot be set").arg(words.first()));
    if (text == QLatin1String("auto") && property->reset != nullptr) {
        property->reset(context);
        return QStringLiteral("ok");
    }
    const std::optional<double> value = parseValue(text, *property);
    if (!value) {
        return failure(QStringLiteral("'%1' is not a number from %2 to %3")
                           .arg(text, formatNumber(property->min), formatNumber(property->max)));
    }
    property->set(context, *value);
    return QStringLiteral("ok");
}

QStringList handPropertyNames()
{
    return propertyNames(false);
}

QStringList fingerPropertyNames()
{
    return propertyNames(true);
}

} // namespace vanto::simulator
