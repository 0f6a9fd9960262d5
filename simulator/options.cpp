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
constexpr qint64 maxU8 = 0xFF;
constexpr qint64 maxU16 = 0xFFFF;
constexpr qint64 maxBaud = 4'000'000;
constexpr qint64 maxWindow = 600'000; // ms
constexpr quint8 defaultNode = 2;

QString complain(const QString& option, const QString& value, const QString& wanted)
{
    return QStringLiteral("--%1: '%2' is not %3").arg(option, value, wanted);
}

QString takeNode(Options& options, const QString& option, const QString& value)
{
    const QStringList parts = value.split(QLatin1Char(':'));
    const std::optional<qint64> id = parseInteger(parts.first(), 0, maxU8);
    if (!id || parts.size() > 2)
        return complain(option, value, QStringLiteral("ID[:PROTOCOL] with an ID from 0 to 255"));
    const std::optional<Protocol> protocol =
        protocolNamed(parts.value(1, protocolName(Protocol::SerialCtrl)));
    if (!protocol)
        return complain(option, value, QStringLiteral("of a known protocol (serialctrl, modbus)"));
    const auto node = static_cast<quint8>(*id);
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

// Dotted numbers: two bytes, and a 16-bit revision where `parts` is three.
std::optional<Version> parseVersion(const QString& value, qsizetype parts)
{
    const QStringList texts = value.split(QLatin1Char('.'));
    if (texts.size() != parts)
        return std::nullopt;
    const std::optional<qint64> major = parseInteger(texts[0], 0, maxU8);
    const std::optional<qint64> minor = parseInteger(texts[1], 0, maxU8);
    const std::optional<qint64> revision =
        parseInteger(texts.value(2, QStringLiteral("0")), 0, maxU16);
    if (!major || !minor || !revision)
        return std::nullopt;
    return Version{static_cast<quint8>(*major), static_cast<quint8>(*minor),
                   static_cast<quint16>(*revision)};
}

template<Version HandTraits::*Member, int Parts>
QString takeVersion(Options& options, const QString& option, const QString& value)
{
    const std::optional<Version> version = parseVersion(value, Parts);
    if (!version) {
        return complain(option, value,
                        Parts == 3 ? QStringLiteral("a version A.B.C")
                                   : QStringLiteral("a version A.B"));
    }
    options.traits.*Member = *version;
    return {};
}

QString takeHardware(Options& options, const QString& option, const QString& value)
{
    const std::optional<qint64> number = parseHex(value, 0, maxU16);
    if (!number || value.size() != 4)
        return complain(option, value, QStringLiteral("four hexadecimal digits"));
    options.traits.hardwareType = static_cast<quint8>(*number / 0x100);
    options.traits.hardwareVersion = static_cast<quint8>(*number % 0x100);
    return {};
}

QString takeKey(Options& options, const QString& option, const QString& value)
{
    const std::optional<qint64> key = parseHex(value, 0, maxU16);
    if (!key)
        return complain(option, value, QStringLiteral("a hexadecimal number up to FFFF"));
    options.traits.calibrationKey = static_cast<quint16>(*key);
    return {};
}

QString takeBaud(Options& options, const QString& option, const QString& value)
{
    const std::optional<qint64> baud = parseInteger(value, 0, maxBaud);
    if (!baud)
        return complain(option, value, QStringLiteral("a baud rate from 0 to 4000000"));
    options.baud = static_cast<quint32>(*baud);
    return {};
}

QString takeBootWindow(Options& options, const QString& option, const QString& value)
{
    const std::optional<qint64> window = parseInteger(value, 0, maxWindow);
    if (!window)
        return complain(option, value, QStringLiteral("a time from 0 to 600000 ms"));
    options.boot.window = std::chrono::milliseconds(*window);
    return {};
}

QString takeNoRecordCheck(Options& options, const QString&, const QString&)
{
    options.boot.checksRecords = false;
    return {};
}

QString takeSpeed(Options& options, const QString& option, const QString& value)
{
    bool isNumber = false;
    const double factor = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(factor) || factor <= 0)
        return complain(option, value, QStringLiteral("a number above 0"));
    options.traits.speedFactor = factor;
    return {};
}

QString takeNoForce(Options& options, const QString&, const QString&)
{
    options.traits.forceSensing = false;
    return {};
}

QString takeForever(Options& options, const QString&, const QString&)
{
    options.outlivesInput = true;
    return {};
}

template<QString Options::*Member>
QString takePath(Options& options, const QString& option, const QString& value)
{
    if (value.isEmpty())
        return complain(option, value, QStringLiteral("a path"));
    options.*Member = value;
    return {};
}

struct OptionEntry {
    const char* name;
    const char* valueName; // empty: without a value
    const char* meaning;
    QString (*take)(Options&, const QString& option, const QString& value);
};

constexpr OptionEntry entries[] = {
    {"node", "ID[:PROTOCOL]",
     "A hand with this node id (decimal or 0x-hex) and protocol (serialctrl, modbus); repeatable. "
     "The same id with both protocols is one hand that speaks both. Default: 2:serialctrl.",
     takeNode},
    {"no-force", "", "Hands without force sensing.", takeNoForce},
    {"firmware", "A.B.C", "Firmware version. Default: 1.4.7.",
     takeVersion<&HandTraits::firmware, 3>},
    {"hardware", "TTVV", "Hardware type and version, hexadecimal. Default: 1B01.", takeHardware},
    {"boot", "A.B", "Boot loader version. Default: 1.2.", takeVersion<&HandTraits::bootLoader, 2>},
    {"protocol-version", "A.B", "Version of the SerialCtrl protocol. Default: 3.1.",
     takeVersion<&HandTraits::protocol, 2>},
    {"modbus-version", "A.B", "Version of the Modbus register map. Default: 1.0.",
     takeVersion<&HandTraits::modbusProtocol, 2>},
    {"calibration-key", "HEX", "Key that allows calibration. Default: 1A2B.", takeKey},
    {"boot-window", "MS",
     "How long after power-on the boot loader hears a probe. Default: whenever the hand is idle.",
     takeBootWindow},
    {"no-record-check", "", "The boot loader accepts records whatever their CRC.",
     takeNoRecordCheck},
    {"link", "PATH", "Symbolic link to the port, removed at the end.",
     takePath<&Options::linkPath>},
    {"trace", "FILE", "Write a line per frame; - is standard error.",
     takePath<&Options::tracePath>},
    {"baud", "N", "Pace the bytes as a serial wire would. Default: 0, no pacing.", takeBaud},
    {"speed", "X", "Factor on the speed of motion. Default: 1.", takeSpeed},
    {"forever", "", "Serve on when standard input ends.", takeForever},
};

void declareOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Simulates robotic hands on a serial bus. The first line on standard output is the port;\n"
        "it is served until standard input ends."));
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")},
                      QStringLiteral("Show the options and commands.")});
    parser.addOption(
        {{QStringLiteral("v"), QStringLiteral("version")}, QStringLiteral("Show the version.")});
    for (const OptionEntry& entry : entries) {
        parser.addOption({QString::fromLatin1(entry.name), QString::fromLatin1(entry.meaning),
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
    for (const OptionEntry& entry : entries) {
        const QString name = QLatin1String(entry.name);
        if (!parser.isSet(name))
            continue;
        const bool hasValue = *entry.valueName != '\0';
        const QStringList values = hasValue ? parser.values(name) : QStringList(QString());
        for (const QString& value : values) {
            const QString error = entry.take(options, name, value);
            if (!error.isEmpty())
                return OptionError{error};
        }
    }
    if (options.nodes.empty())
        options.nodes.push_back({defaultNode, Protocol::SerialCtrl});
    return options;
}

} // namespace vanto::simulator
