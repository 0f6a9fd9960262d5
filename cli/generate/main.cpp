// Writes the shell completion or the manual page of vantoctl from its table of commands:
//   vantoctl-generate bash | zsh | fish
//   vantoctl-generate man TEMPLATE      replaces the lines @OPTIONS@ and @COMMANDS@

#include "commandline.h"
#include "handvalues.h"
#include "parameter.h"

#include <cctype>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <string>

namespace vanto
{

namespace
{
/// Words that an option or a command takes, where there are few.
const std::map<std::string, std::string> OptionWords{
    {"--protocol", "auto serialctrl modbus"},
    {"--fields", "current position angle force"},
    {"--format", "csv jsonl"},
};

bool takesFile(const Command& command)
{
    return !command.positionals.empty() && std::string(command.positionals[0].name) == "file";
}

std::string fingerNames()
{
    std::string names;
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger)
        names += ParameterNames::finger(finger).toStdString() + ' ';
    return names;
}

/// The words that can follow a command.
std::string wordsOf(const Command& command)
{
    const std::string name = command.name;
    std::string words;
    if (name == "get" || name == "set")
        for (const ParameterDescriptor& descriptor : parameterDescriptors())
            words += std::string(descriptor.name) + ' ';
    if (name == "get")
        for (const HandValue& value : handValues())
            words += std::string(value.name) + ' ';
    if (name == "set")
        words += "gains ";
    if (name == "get" || name == "set" || name == "move")
        words += fingerNames();
    return words;
}

std::string commandNames()
{
    std::string names;
    for (const Command& command : commands())
        names += std::string(command.name) + ' ';
    return names;
}

std::string optionNames(const Command& command)
{
    std::string names = "--help ";
    for (const CommandOption& option : command.options)
        names += std::string(option.name) + ' ';
    return names;
}

std::string generalOptionNames()
{
    std::string names = "--help --version ";
    for (const GeneralOption& option : generalOptions())
        names += std::string(option.name) + ' ';
    return names;
}

/// Calls the function once for each option that has a value.
void forEachValue(const std::function<void(const std::string& name)>& act)
{
    for (const GeneralOption& option : generalOptions())
        if (option.value)
            act(option.name);
    for (const Command& command : commands())
        for (const CommandOption& option : command.options)
            if (option.value)
                act(option.name);
}

std::string joined(std::string words, const char* separator)
{
    while (!words.empty() && words.back() == ' ')
        words.pop_back();
    for (auto at = words.find(' '); at != std::string::npos; at = words.find(' ', at + 1))
        words.replace(at, 1, separator);
    return words;
}

void writeBash()
{
    std::cout
        << "# bash completion for vantoctl\n_vantoctl() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
           "    local word command= options= words=\n"
           "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
           "        case $word in\n        "
        << joined(commandNames(), "|")
        << ") command=$word; break ;;\n        esac\n    done\n    case $previous in\n";
    for (const auto& [option, words] : OptionWords)
        std::cout << "    " << option << ") COMPREPLY=($(compgen -W '" << words
                  << "' -- \"$current\")); return ;;\n";
    std::cout << "    --port) COMPREPLY=($(compgen -f -- \"${current:-/dev/tty}\")); return ;;\n"
                 "    --key-file) compopt -o default; return ;;\n";
    std::string others;
    forEachValue([&](const std::string& name) {
        if (!OptionWords.contains(name) && name != "--port" && name != "--key-file" &&
            others.find(name + ' ') == std::string::npos)
            others += name + ' ';
    });
    std::cout << "    " << joined(others, "|") << ") return ;;\n    esac\n    case $command in\n";
    for (const Command& command : commands()) {
        std::cout << "    " << command.name << ") options='" << optionNames(command) << "'";
        if (const std::string words = wordsOf(command); !words.empty())
            std::cout << " words='" << words << "'";
        if (takesFile(command))
            std::cout << "; [[ $current == -* ]] || compopt -o default";
        std::cout << " ;;\n";
    }
    std::cout << "    '') words='" << commandNames() << "' ;;\n    esac\n"
              << "    if [[ $current == -* ]]; then\n"
                 "        COMPREPLY=($(compgen -W \"$options "
              << generalOptionNames()
              << "\" -- \"$current\"))\n    else\n"
                 "        COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n    fi\n}\n"
                 "complete -F _vantoctl vantoctl\n";
}

/// Quotes for a description in single quotes, with brackets escaped for zsh.
std::string zshText(const std::string& text)
{
    std::string quoted;
    for (const char letter : text) {
        if (letter == '[' || letter == ']' || letter == ':')
            quoted += '\\';
        if (letter == '\'')
            quoted += "'\\'";
        quoted += letter;
    }
    return quoted;
}

void writeZshOption(const char* name, const char* value, const char* help)
{
    std::cout << "        '" << name << (value ? "=" : "") << '[' << zshText(help) << ']';
    const auto words = OptionWords.find(name);
    if (value)
        std::cout << ':' << zshText(value) << ':'
                  << (words != OptionWords.end() ? '(' + words->second + ')'
                      : std::string(name) == "--port" || std::string(name) == "--key-file"
                          ? "_files"
                          : "");
    std::cout << "' \\\n";
}

void writeZsh()
{
    std::cout << "#compdef vantoctl\n_vantoctl() {\n    local context state line\n"
                 "    local -a names\n    _arguments -C \\\n";
    for (const GeneralOption& option : generalOptions())
        writeZshOption(option.name, option.value, option.help);
    std::cout << "        '--help[Show the help]' '--version[Show the version]' \\\n"
                 "        '1:command:->command' '*::argument:->argument'\n"
                 "    case $state in\n    command)\n        names=(\n";
    for (const Command& command : commands())
        std::cout << "        '" << command.name << ':' << zshText(command.help) << "'\n";
    std::cout << "        )\n        _describe command names\n        ;;\n    argument)\n"
                 "        case $words[1] in\n";
    for (const Command& command : commands()) {
        std::cout << "        " << command.name << ") _arguments \\\n";
        for (const CommandOption& option : command.options)
            writeZshOption(option.name, option.value, option.help);
        const std::string words = wordsOf(command);
        std::cout << "        '*:argument:"
                  << (takesFile(command) ? "_files"
                      : words.empty()    ? ""
                                         : '(' + joined(words, " ") + ')')
                  << "' ;;\n";
    }
    std::cout << "        esac\n        ;;\n    esac\n}\n_vantoctl \"$@\"\n";
}

std::string fishText(const std::string& text)
{
    std::string quoted;
    for (const char letter : text)
        quoted += letter == '\'' ? std::string("\\'") : std::string(1, letter);
    return '\'' + quoted + '\'';
}

void writeFishOption(const std::string& condition, const char* name, const char* value,
                     const char* help)
{
    std::cout << "complete -c vantoctl" << condition << " -l " << std::string(name).substr(2);
    const auto words = OptionWords.find(name);
    if (words != OptionWords.end())
        std::cout << " -x -a " << fishText(words->second);
    else if (value)
        std::cout << " -r";
    std::cout << " -d " << fishText(help) << '\n';
}

void writeFish()
{
    std::cout << "# fish completion for vantoctl\ncomplete -c vantoctl -f\n";
    for (const GeneralOption& option : generalOptions())
        writeFishOption("", option.name, option.value, option.help);
    for (const Command& command : commands()) {
        std::cout << "complete -c vantoctl -n __fish_use_subcommand -a " << command.name << " -d "
                  << fishText(command.help) << '\n';
        const std::string condition =
            std::string(" -n '__fish_seen_subcommand_from ") + command.name + '\'';
        for (const CommandOption& option : command.options)
            writeFishOption(condition, option.name, option.value, option.help);
        if (takesFile(command))
            std::cout << "complete -c vantoctl" << condition << " -F\n";
        if (const std::string words = wordsOf(command); !words.empty())
            std::cout << "complete -c vantoctl" << condition << " -a " << fishText(words) << '\n';
    }
}

/// A hyphen that stays one when it is copied.
std::string roff(std::string text)
{
    for (auto at = text.find('-'); at != std::string::npos; at = text.find('-', at + 2))
        text.replace(at, 1, "\\-");
    return text;
}

void writeRoffOption(const char* name, const char* value, const std::string& help)
{
    std::cout << ".TP\n.BR " << roff(name);
    if (value)
        std::cout << " \" \" \\fI" << roff(value) << "\\fR";
    std::cout << '\n' << roff(help) << ".\n";
}

std::string upper(std::string text)
{
    for (char& letter : text)
        letter = static_cast<char>(std::toupper(letter));
    return text;
}

void writeRoffCommands()
{
    for (const Command& command : commands()) {
        std::cout << ".SS \"" << command.name;
        for (const Positional& each : command.positionals)
            std::cout << (each.min == 0 ? " [" : " ") << upper(each.name)
                      << (each.max > 1 ? "..." : "") << (each.min == 0 ? "]" : "");
        std::cout << "\"\n" << roff(command.help) << ".\n";
        for (const Positional& each : command.positionals)
            std::cout << ".TP\n.I " << upper(each.name) << '\n' << roff(each.help) << ".\n";
        for (const CommandOption& option : command.options)
            writeRoffOption(option.name, option.value, option.help);
    }
}

int writeManual(const char* path)
{
    std::ifstream file(path);
    std::string line;
    while (std::getline(file, line)) {
        if (line == "@COMMANDS@")
            writeRoffCommands();
        else if (line == "@OPTIONS@")
            for (const GeneralOption& option : generalOptions())
                writeRoffOption(option.name, option.value,
                                option.help + (option.variable
                                                   ? std::string("; also from ") + option.variable
                                                   : std::string()));
        else
            std::cout << line << '\n';
    }
    return file.eof() ? 0 : 1;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    const std::string what = argc > 1 ? argv[1] : "";
    if (what == "man" && argc > 2)
        return writeManual(argv[2]);
    const std::map<std::string, void (*)()> writers{
        {"bash", writeBash}, {"zsh", writeZsh}, {"fish", writeFish}};
    const auto writer = writers.find(what);
    if (writer == writers.end()) {
        std::fputs("usage: vantoctl-generate bash | zsh | fish | man TEMPLATE\n", stderr);
        return 2;
    }
    writer->second();
    return 0;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
