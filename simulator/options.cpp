#include "options.h"

#include "control.h"
#include "numbers.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>

namespace vanto::simulator
{
namespace
{
constexpr std::int64_t MaxU8 = 0xFF;
constexpr std::int64_t MaxU16 = 0xFFFF;
constexpr std::int64_t MaxBaud = 4'000'000;
constexpr std::int64_t MaxBootWindowMs = 600'000;
constexpr std::uint8_t DefaultNode = 2;

QString invalidValue(const QString& option, const QString& value, const QString& expected)
{
    return QStringLiteral("--%1: '%2' is not %3").arg(option, value, expected);
}

QString applyNode(Options& options, const QString& option, const QString& value)
{
    const QStringList parts = value.split(QLatin1Char(':'));
    const std::optional<std::int64_t> id = parseInteger(parts.first(), 0, MaxU8);
    if (!id || parts.size() > 2)
        return invalidValue(option, value,
                            QStringLiteral("ID[:PROTOCOL] with an ID from 0 to 255"));
    const std::optional<Protocol> protocol =
        protocolFromName(parts.value(1, protocolName(Protocol::SerialCtrl)));
    if (!protocol)
        return invalidValue(option, value,
                            QStringLiteral("of a known protocol (serialctrl, modbus)"));
    const auto node = static_cast<std::uint8_t>(*id);
    const auto other = std::ranges::find(options.nodes, node, &Options::NodeOption::id);
    if (other == options.nodes.end()) {
        options.nodes.push_back({node, *protocol});
        return {};
    }
    if (other->protocols.testFlag(*protocol))
        return QStringLiteral("--%1: node %2 is given twice").arg(option).arg(node);
    other->protocols |= *protocol;
    return {};
}

/// Parses two bytes separated by a dot, and a 16-bit revision if `parts` is 3.
std::optional<Version> parseVersion(const QString& value, qsizetype parts)
{
    const QStringList texts = value.split(QLatin1Char('.'));
    if (texts.size() != parts)
        return std::nullopt;
    const std::optional<std::int64_t> major = parseInteger(texts[0], 0, MaxU8);
    const std::optional<std::int64_t> minor = parseInteger(texts[1], 0, MaxU8);
    const std::optional<std::int64_t> revision =
        parseInteger(texts.value(2, QStringLiteral("0")), 0, MaxU16);
    if (!major || !minor || !revision)
        return std::nullopt;
    return Version{static_cast<std::uint8_t>(*major), static_cast<std::uint8_t>(*minor),
                   static_cast<std::uint16_t>(*revision)};
}

template<Version HandTraits::*Member, int Parts>
QString applyVersion(Options& options, const QString& option, const QString& value)
{
    const std::optional<Version> version = parseVersion(value, Parts);
    if (!version) {
        return invalidValue(option, value,
                            Parts == 3 ? QStringLiteral("a version A.B.C")
                                       : QStringLiteral("a version A.B"));
    }
    options.traits.*Member = *version;
    return {};
}

QString applyHardware(Options& options, const QString& option, const QString& value)
{
    const std::optional<std::int64_t> number = parseHex(value, 0, MaxU16);
    if (!number || value.size() != 4)
        return invalidValue(option, value, QStringLiteral("four hexadecimal digits"));
    options.traits.hardwareType = static_cast<std::uint8_t>(*number / 0x100);
    options.traits.hardwareVersion = static_cast<std::uint8_t>(*number % 0x100);
    return {};
}

QString applyKey(Options& options, const QString& option, const QString& value)
{
    const std::optional<std::int64_t> key = parseHex(value, 0, MaxU16);
    if (!key)
        return invalidValue(option, value, QStringLiteral("a hexadecimal number up to FFFF"));
    options.traits.calibrationKey = static_cast<std::uint16_t>(*key);
    return {};
}

QString applyBaud(Options& options, const QString& option, const QString& value)
{
    const std::optional<std::int64_t> baud = parseInteger(value, 0, MaxBaud);
    if (!baud)
        return invalidValue(option, value, QStringLiteral("a baud rate from 0 to 4000000"));
    options.baud = static_cast<std::uint32_t>(*baud);
    return {};
}

QString applyBootWindow(Options& options, const QString& option, const QString& value)
{
    const std::optional<std::int64_t> window = parseInteger(value, 0, MaxBootWindowMs);
    if (!window)
        return invalidValue(option, value, QStringLiteral("a time from 0 to 600000 ms"));
    options.boot.window = std::chrono::milliseconds(*window);
    return {};
}

QString applyNoRecordCheck(Options& options, const QString&, const QString&)
{
    options.boot.checksRecords = false;
    return {};
}

QString applySpeed(Options& options, const QString& option, const QString& value)
{
    bool isNumber = false;
    const double factor = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(factor) || factor <= 0)
        return invalidValue(option, value, QStringLiteral("a number above 0"));
    options.traits.speedFactor = factor;
    return {};
}

QString applyNoForce(Options& options, const QString&, const QString&)
{
    options.traits.forceSensing = false;
    return {};
}

template<bool HandTraits::*Member>
QString applyTrait(Options& options, const QString&, const QString&)
{
    options.traits.*Member = true;
    return {};
}

QString applyCollide(Options& options, const QString&, const QString&)
{
    options.collides = true;
    return {};
}

QString applyForever(Options& options, const QString&, const QString&)
{
    options.keepsRunning = true;
    return {};
}

template<QString Options::*Member>
QString applyPath(Options& options, const QString& option, const QString& value)
{
    if (value.isEmpty())
        return invalidValue(option, value, QStringLiteral("a path"));
    options.*Member = value;
    return {};
}

struct OptionEntry {
    const char* name;
    const char* valueName; ///< empty: the option has no value
    const char* description;
    QString (*apply)(Options&, const QString& option, const QString& value);
};

constexpr OptionEntry Entries[] = {
    {"node", "ID[:PROTOCOL]",
     "Add a hand with this node id (decimal or 0x-hex) and protocol (serialctrl, modbus). Can be "
     "repeated; one id with both protocols is one hand that supports both. Default: 2:serialctrl.",
     applyNode},
    {"no-force", "", "Simulate hands without force sensing.", applyNoForce},
    {"firmware", "A.B.C", "Firmware version. Default: 1.4.7.",
     applyVersion<&HandTraits::firmware, 3>},
    {"hardware", "TTVV", "Hardware type and version, hexadecimal. Default: 1B01.", applyHardware},
    {"boot", "A.B", "Boot loader version. Default: 1.2.", applyVersion<&HandTraits::bootLoader, 2>},
    {"protocol-version", "A.B", "Version of the SerialCtrl protocol. Default: 3.1.",
     applyVersion<&HandTraits::protocol, 2>},
    {"modbus-version", "A.B", "Version of the Modbus register map. Default: 1.0.",
     applyVersion<&HandTraits::modbusProtocol, 2>},
    {"calibration-key", "HEX", "Calibration key of the hand. Default: 1A2B.", applyKey},
    {"boot-window", "MS",
     "Time after power-on in which the boot loader answers. Default: whenever the hand is idle.",
     applyBootWindow},
    {"no-record-check", "", "Accept firmware records with a wrong CRC.", applyNoRecordCheck},
    {"link", "PATH", "Symbolic link to the port, removed on exit.", applyPath<&Options::linkPath>},
    {"trace", "FILE",
     "Write a line to FILE for each frame and each change of motion; - is standard error.",
     applyPath<&Options::tracePath>},
    {"baud", "N", "Limit the transfer to this baud rate. Default: 0, no limit.", applyBaud},
    {"speed", "X", "Factor applied to the speed of motion. Default: 1.", applySpeed},
    {"speed-at-once", "",
     "Apply a speed written over Modbus also to the motion under way. Default: only to the next "
     "motion.",
     applyTrait<&HandTraits::appliesSpeedAtOnce>},
    {"latch-stop", "",
     "Stopped fingers stand until they are started; a position only sets their target. Default: a "
     "position also starts them.",
     applyTrait<&HandTraits::latchesStop>},
    {"collide", "",
     "The replies of several hands to SerialCtrl node 255 collide into one damaged frame. Default: "
     "only the hand with the lowest id answers.",
     applyCollide},
    {"forever", "", "Keep running when standard input ends.", applyForever},
};

void declareOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Simulates robotic hands on a serial bus. The first line of standard output is the port.\n"
        "The simulation runs until standard input ends."));
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")},
                      QStringLiteral("Show the options and commands.")});
    parser.addOption(
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Show the version.")});
    for (const OptionEntry& entry : Entries) {
        parser.addOption({QString::fromLatin1(entry.name), QString::fromLatin1(entry.description),
                          QString::fromLatin1(entry.valueName)});
    }
}
} // namespace

std::variant<Options, OptionError, OptionText> parseOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    declareOptions(parser);
    if (!parser.parse(arguments))
        return OptionError{parser.errorText()};
    if (parser.isSet(QStringLiteral("help")))
        return OptionText{parser.helpText() + QLatin1Char('\n') + Control::help()};
    if (parser.isSet(QStringLiteral("version"))) {
        return OptionText{QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(),
                                                        QCoreApplication::applicationVersion())};
    }
    if (!parser.positionalArguments().isEmpty())
        return OptionError{
            QStringLiteral("unexpected argument '%1'").arg(parser.positionalArguments().first())};

    Options options;
    for (const OptionEntry& entry : Entries) {
        const QString name = QLatin1String(entry.name);
        if (!parser.isSet(name))
            continue;
        const bool hasValue = *entry.valueName != '\0';
        const QStringList values = hasValue ? parser.values(name) : QStringList(QString());
        for (const QString& value : values) {
            const QString error = entry.apply(options, name, value);
            if (!error.isEmpty())
                return OptionError{error};
        }
    }
    if (options.nodes.empty())
        options.nodes.push_back({DefaultNode, Protocol::SerialCtrl});
    return options;
}

} // namespace vanto::simulator
