#include "command.h"

#include "basiccommands.h"
#include "batchcommand.h"
#include "calibratecommand.h"
#include "filecommands.h"
#include "infocommands.h"
#include "monitorcommand.h"
#include "motioncommands.h"
#include "parameter.h"
#include "parametercommands.h"
#include "playcommand.h"
#include "portcommands.h"
#include "updatecommand.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vanto
{

namespace
{
/// The number of letters to change, insert or remove to make one word of the other.
int distance(const QString& one, const QString& other)
{
    std::vector<int> row(static_cast<std::size_t>(other.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const QChar letter : one) {
        int diagonal = row[0]++;
        for (std::size_t j = 1; j < row.size(); ++j) {
            const bool same = letter.toLower() == other[static_cast<qsizetype>(j) - 1].toLower();
            const int replaced = diagonal + (same ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}
} // namespace

const std::vector<Command>& commands()
{
    static const std::vector<Command> all = [] {
        std::vector<Command> list;
        for (const auto& group :
             {portCommands(), infoCommands(), parameterCommands(), motionCommands(), playCommands(),
              monitorCommands(), fileCommands(), basicCommands(), updateCommands(),
              calibrateCommands(), batchCommands()})
            list.insert(list.end(), group.begin(), group.end());
        return list;
    }();
    return all;
}

const Command* findCommand(const QString& name)
{
    const auto found = std::ranges::find_if(
        commands(), [&](const Command& each) { return name == QLatin1String(each.name); });
    return found == commands().end() ? nullptr : &*found;
}

QStringList fingerNames()
{
    QStringList names;
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger)
        names.append(ParameterNames::finger(finger));
    return names;
}

QString suggestion(const QString& word, const QStringList& names)
{
    QString best;
    int bestDistance = static_cast<int>(std::max<qsizetype>(2, word.size() / 3)) + 1;
    for (const QString& name : names) {
        const int letters = distance(word, name);
        if (letters < bestDistance) {
            best = name;
            bestDistance = letters;
        }
    }
    return best;
}

QString didYouMean(const QString& word, const QStringList& names)
{
    const QString name = suggestion(word, names);
    return name.isEmpty() ? QString() : QStringLiteral(" Did you mean '%1'?").arg(name);
}

QStringList Arguments::list(const char* option) const
{
    QStringList all;
    for (const QString& value : options.value(QLatin1String(option)))
        all += value.split(QLatin1Char(','), Qt::SkipEmptyParts);
    return all;
}

int Arguments::number(const QString& text, const char* what, int min, int max)
{
    bool valid = false;
    const int number =
        text.startsWith(QLatin1String("0x")) ? text.toInt(&valid, 16) : text.toInt(&valid);
    if (valid && number >= min && number <= max)
        return number;
    setError(QStringLiteral("%1 must be an integer from %2 to %3, not '%4'.")
                 .arg(QLatin1String(what), QString::number(min), QString::number(max), text));
    return min;
}

double Arguments::real(const QString& text, const char* what, double min, double max)
{
    bool valid = false;
    const double number =
        QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&valid);
    if (valid && std::isfinite(number) && number >= min && number <= max)
        return number;
    setError(QStringLiteral("%1 must be a number from %2 to %3, not '%4'.")
                 .arg(QLatin1String(what), QString::number(min), QString::number(max), text));
    return min;
}

std::uint8_t Arguments::finger(const QString& text)
{
    if (const auto finger = ParameterNames::parseFinger(text))
        return *finger;
    const QStringList names = fingerNames();
    setError(QStringLiteral("There is no finger '%1'; use 0 to 5 or %2.%3")
                 .arg(text, names.join(QLatin1String(", ")), didYouMean(text, names)));
    return 0;
}

void Arguments::setError(const QString& error)
{
    if (m_error.isEmpty())
        m_error = error;
}

} // namespace vanto
