#include "commandline.h"

#include <CLI/CLI.hpp>

#include <QRegularExpression>

#include <algorithm>
#include <list>
#include <map>
#include <string>

namespace vanto
{

namespace
{
constexpr int MaxPatience = 1000;

QStringList toTexts(const std::vector<std::string>& strings)
{
    QStringList texts;
    for (const std::string& each : strings)
        texts.append(QString::fromStdString(each));
    return texts;
}

/// The parser of CLI11 and where it stores the values of all commands.
class Parser
{
public:
    Parser();

    Invocation parse(int argc, const char* const* argv);

private:
    struct Values {
        const Command* command;
        CLI::App* parser;
        std::list<std::vector<std::string>> positionals;
        std::list<std::pair<std::string, std::vector<std::string>>> options;
        std::list<std::pair<std::string, bool>> flags;
    };

    void addGeneralOptions();
    void add(const Command& command);
    void readGeneralOptions(Invocation& invocation);
    static void read(const Values& values, Invocation& invocation);

    CLI::App m_app{"Configures and moves robotic hands over a serial port", "vantoctl"};
    std::map<std::string, std::string> m_general;
    std::map<std::string, bool> m_generalFlags;
    std::list<Values> m_commands;
};

Parser::Parser()
{
    m_app.require_subcommand(1);
    m_app.set_version_flag("--version", "vantoctl " VANTO_VERSION);
    m_app.fallthrough();
    addGeneralOptions();
    for (const Command& command : commands())
        add(command);
}

void Parser::addGeneralOptions()
{
    for (const GeneralOption& option : generalOptions()) {
        if (!option.value) {
            m_app.add_flag(option.name, m_generalFlags[option.name], option.help);
            continue;
        }
        auto* added = m_app.add_option(option.name, m_general[option.name], option.help);
        added->type_name(option.value);
        if (option.variable)
            added->envname(option.variable);
    }
}

void Parser::add(const Command& command)
{
    Values& values = m_commands.emplace_back();
    values.command = &command;
    CLI::App* parser = m_app.add_subcommand(command.name, command.help);
    values.parser = parser;
    parser->fallthrough();
    for (const Positional& each : command.positionals)
        parser->add_option(each.name, values.positionals.emplace_back(), each.help)
            ->type_name("")
            ->expected(std::max(each.min, 1), each.max)
            ->allow_extra_args(each.max > std::max(each.min, 1))
            ->required(each.min > 0);
    for (const CommandOption& option : command.options) {
        if (!option.value) {
            parser->add_flag(option.name, values.flags.emplace_back(option.name, false).second,
                             option.help);
            continue;
        }
        // An option takes one word, or it would take the values of the command.
        auto* added = parser->add_option(
            option.name,
            values.options.emplace_back(option.name, std::vector<std::string>()).second,
            option.help);
        added->type_name(option.value)->expected(1)->allow_extra_args(false);
        if (option.max > 1)
            added->take_all();
    }
}

void Parser::readGeneralOptions(Invocation& invocation)
{
    GeneralOptions& options = invocation.options;
    const auto text = [this](const char* name) { return QString::fromStdString(m_general[name]); };
    options.port = text("--port");
    if (const QString node = text("--node"); !node.isEmpty())
        options.node = static_cast<std::uint8_t>(
            invocation.arguments.number(node, "The node", 0, HighestNode));
    if (const QString protocol = text("--protocol").toLower(); protocol == QLatin1String("modbus"))
        options.protocol = PROTOCOL_TYPE_MODBUS_RTU;
    else if (protocol == QLatin1String("serialctrl"))
        options.protocol = PROTOCOL_TYPE_SERIALCTRL;
    else if (!protocol.isEmpty() && protocol != QLatin1String("auto"))
        invocation.error =
            QStringLiteral("The protocol must be auto, serialctrl or modbus, not '%1'.")
                .arg(protocol);
    if (options.protocol == PROTOCOL_TYPE_MODBUS_RTU && options.node == 0)
        invocation.error = QStringLiteral("Over Modbus no hand has node 0.");
    if (const QString factor = text("--patience"); !factor.isEmpty())
        options.patience = invocation.arguments.number(factor, "The patience", 1, MaxPatience);
    options.anyNode = m_generalFlags["--any-node"];
    options.json = m_generalFlags["--json"];
    options.quiet = m_generalFlags["--quiet"];
    options.verbose = m_generalFlags["--verbose"];
}

void Parser::read(const Values& values, Invocation& invocation)
{
    invocation.command = values.command;
    for (const auto& given : values.positionals)
        invocation.arguments.values += toTexts(given);
    for (const auto& [name, given] : values.options)
        if (!given.empty())
            invocation.arguments.options.insert(QString::fromStdString(name), toTexts(given));
    for (const auto& [name, given] : values.flags)
        if (given)
            invocation.arguments.options.insert(QString::fromStdString(name), {});
}

/// A better text for a word that does not exist.
QString unknownWord(const QStringList& words)
{
    QStringList names;
    for (const Command& command : commands())
        names.append(QLatin1String(command.name));
    const Command* command = nullptr;
    QStringList options{QStringLiteral("--help"), QStringLiteral("--version")};
    QStringList withValue;
    for (const GeneralOption& option : generalOptions()) {
        options.append(QLatin1String(option.name));
        if (option.value)
            withValue.append(QLatin1String(option.name));
    }
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString word = words[i].section(QLatin1Char('='), 0, 0);
        if (word.startsWith(QLatin1String("--"))) {
            if (!options.contains(word) && (command || words.mid(i + 1).isEmpty()))
                return QStringLiteral("There is no option '%1'.%2")
                    .arg(word, didYouMean(word, options));
            i += withValue.contains(word) && !words[i].contains(QLatin1Char('=')) ? 1 : 0;
        } else if (!command) {
            command = findCommand(word);
            if (!command)
                return QStringLiteral("There is no command '%1'.%2")
                    .arg(word, didYouMean(word, names));
            for (const CommandOption& option : command->options)
                options.append(QLatin1String(option.name));
        }
    }
    return command ? QString() : QStringLiteral("No command is given; see vantoctl --help.");
}

/// A better text for positional values that are missing; empty after another error.
QString missingValues(const CLI::ParseError& error)
{
    const QString text = QString::fromStdString(error.what());
    if (dynamic_cast<const CLI::RequiredError*>(&error))
        return QStringLiteral("A value is missing: %1.")
            .arg(text.section(QLatin1String(" is required"), 0, 0));
    static const QRegularExpression tooFew(
        QStringLiteral("^\\w+: At least (\\d+) required but received (\\d+)$"));
    const QRegularExpressionMatch match = tooFew.match(text);
    return match.hasMatch() ? QStringLiteral("Values are missing: %1 are required, not %2.")
                                  .arg(match.captured(1), match.captured(2))
                            : QString();
}

Invocation Parser::parse(int argc, const char* const* argv)
{
    Invocation invocation;
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QString::fromLocal8Bit(argv[i]));
    invocation.options.json = words.contains(QLatin1String("--json"));
    try {
        m_app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        invocation.text = QString::fromStdString(m_app.help());
        return invocation;
    } catch (const CLI::CallForVersion&) {
        invocation.text = QStringLiteral("vantoctl " VANTO_VERSION "\n");
        return invocation;
    } catch (const CLI::ParseError& error) {
        invocation.error = unknownWord(words);
        if (invocation.error.isEmpty())
            invocation.error = missingValues(error);
        if (invocation.error.isEmpty())
            invocation.error = QString::fromStdString(error.what());
        return invocation;
    }
    for (const Values& values : m_commands)
        if (values.parser->parsed())
            read(values, invocation);
    readGeneralOptions(invocation);
    return invocation;
}
} // namespace

const std::vector<GeneralOption>& generalOptions()
{
    static const std::vector<GeneralOption> options{
        {"--port", "PORT", "VANTO_PORT",
         "Port: a name, a path, or usb:SERIAL for the adapter with this serial number; without it "
         "the only port"},
        {"--node", "NODE", "VANTO_NODE", "Node id of the hand, 0 to 255"},
        {"--protocol", "PROTOCOL", "VANTO_PROTOCOL",
         "auto (SerialCtrl first, then Modbus), serialctrl or modbus"},
        {"--patience", "FACTOR", "VANTO_PATIENCE",
         "Factor for all time-outs, for slow lines such as ports over a network"},
        {"--any-node", nullptr, nullptr, "Allow writing to node 255, which every hand obeys"},
        {"--json", nullptr, nullptr, "Write results as JSON"},
        {"--quiet", nullptr, nullptr, "Write no messages but errors"},
        {"--verbose", nullptr, nullptr, "Write each frame to standard error"},
    };
    return options;
}

Invocation parseCommandLine(int argc, const char* const* argv)
{
    return Parser().parse(argc, argv);
}

} // namespace vanto
