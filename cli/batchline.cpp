#include "batchline.h"

#include <algorithm>

namespace vanto
{

namespace
{
bool isText(QByteArrayView bytes)
{
    return std::ranges::all_of(bytes, [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return (code >= 0x20 && code < 0x7F) || byte == '\t';
    });
}

const CommandOption* findOption(const Command& command, const QString& name)
{
    const auto found = std::ranges::find_if(command.options, [&](const CommandOption& each) {
        return name == QLatin1String(each.name);
    });
    return found == command.options.end() ? nullptr : &*found;
}

bool isNumber(const QString& word)
{
    bool valid = false;
    (void)word.toDouble(&valid);
    return valid;
}

QStringList batchCommandNames()
{
    QStringList names;
    for (const Command& command : commands())
        if (command.inBatch)
            names.append(QLatin1String(command.name));
    return names;
}

/// --wait is not one of them: the line would hold up those of other hands.
QStringList batchOptionNames(const Command& command)
{
    QStringList names;
    for (const CommandOption& option : command.options)
        if (option.name != QLatin1String("--wait"))
            names.append(QLatin1String(option.name));
    return names;
}

/// Sorts the words after the command into values and options.
QString sortWords(const Command& command, const QStringList& words, Arguments& arguments)
{
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (!word.startsWith(QLatin1Char('-')) || isNumber(word)) {
            arguments.values.append(word);
            continue;
        }
        const QString name = word.section(QLatin1Char('='), 0, 0);
        const CommandOption* option = findOption(command, name);
        if (!option || name == QLatin1String("--wait"))
            return QStringLiteral("There is no option '%1' in a batch.%2")
                .arg(name, didYouMean(name, batchOptionNames(command)));
        if (option->max <= 1 && arguments.has(option->name))
            return QStringLiteral("The option '%1' is given twice.")
                .arg(QLatin1String(option->name));
        if (!option->value && word.contains(QLatin1Char('=')))
            return QStringLiteral("The option '%1' takes no value.")
                .arg(QLatin1String(option->name));
        QStringList& given = arguments.options[QLatin1String(option->name)];
        if (option->value && word.contains(QLatin1Char('=')))
            given.append(word.section(QLatin1Char('='), 1));
        else if (option->value && i + 1 < words.size() &&
                 (!words[i + 1].startsWith(QLatin1Char('-')) || isNumber(words[i + 1])))
            given.append(words[++i]);
        else if (option->value)
            return QStringLiteral("The option '%1' needs a value.").arg(word);
    }
    int fewest = 0;
    int most = 0;
    for (const Positional& each : command.positionals) {
        fewest += each.min;
        most += each.max;
    }
    if (arguments.values.size() < fewest)
        return QStringLiteral("Values are missing.");
    if (arguments.values.size() > most)
        return QStringLiteral("There are too many values.");
    return {};
}
} // namespace

BatchLine parseBatchLine(QByteArrayView text)
{
    BatchLine line;
    if (!isText(text)) {
        line.error = QStringLiteral("The line contains other bytes than text.");
        return line;
    }
    const QString simplified = QString::fromLatin1(text).simplified();
    if (simplified.isEmpty() || simplified.startsWith(QLatin1Char('#')))
        return line;
    const QStringList words = simplified.split(QLatin1Char(' '));
    const int node = line.arguments.number(words[0], "The node", 0, HighestNode);
    if (!line.arguments.error().isEmpty()) {
        line.error = line.arguments.error();
        return line;
    }
    line.node = static_cast<std::uint8_t>(node);
    const QString name = words.value(1);
    const Command* command = findCommand(name);
    if (!command || !command->inBatch) {
        const QStringList names = batchCommandNames();
        line.error = QStringLiteral("There is no command '%1' in a batch; use one of %2.%3")
                         .arg(name, names.join(QLatin1String(", ")), didYouMean(name, names));
        return line;
    }
    line.error = sortWords(*command, words.sliced(2), line.arguments);
    if (line.error.isEmpty())
        line.command = command;
    return line;
}

} // namespace vanto
