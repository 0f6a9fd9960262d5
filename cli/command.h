#pragma once

#include "vantoprotocol.h"

#include <QMap>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <vector>

namespace vanto
{

class Answer;
class Tool;

constexpr int HighestNode = 255;

/// The options that all commands share.
struct GeneralOptions {
    QString port; ///< name, path or usb:SERIAL; empty: the only one
    std::optional<std::uint8_t> node;
    std::optional<PROTOCOL_TYPE> protocol; ///< none: try both
    int patience = 1;                      ///< factor for all time-outs, see stretched()
    bool anyNode = false;                  ///< node 255 may be written to
    bool json = false;
    bool quiet = false;
    bool verbose = false;

    /// A wait for the hand itself, such as for its reboot, with patience but not for hours.
    int stretched(int milliseconds) const
    {
        constexpr int LongestMs = 120'000;
        return std::max(milliseconds, std::min(patience * milliseconds, LongestMs));
    }
};

/// The values and options of one command, and their conversion. The first value that is wrong is
/// kept as the error; conversions return something harmless then.
class Arguments
{
public:
    QStringList values;
    QMap<QString, QStringList> options; ///< by name, "--speed"

    bool has(const char* option) const { return options.contains(QLatin1String(option)); }
    /// The values of an option, which commas may separate too.
    QStringList list(const char* option) const;
    QString option(const char* option) const
    {
        return options.value(QLatin1String(option)).value(0);
    }

    int number(const QString& text, const char* what, int min, int max);
    double real(const QString& text, const char* what, double min, double max);
    std::uint8_t finger(const QString& text);
    void setError(const QString& error);
    const QString& error() const { return m_error; }

private:
    QString m_error;
};

/// What a command does with a hand.
enum class Effect {
    NoHand, ///< it needs no node
    Reads,
    Writes
};

struct Positional {
    const char* name;
    int min; ///< fewest values
    int max;
    const char* help;
};

struct CommandOption {
    const char* name;  ///< "--speed"
    const char* value; ///< its name in the help; null: a flag
    int max;           ///< most values, separated by commas or given by repetition
    const char* help;
};

struct Command {
    const char* name;
    const char* help;
    Effect effect;
    bool inBatch; ///< whether a line of batch can contain it
    std::vector<Positional> positionals;
    std::vector<CommandOption> options;
    void (*run)(Tool& tool, Arguments& arguments, Answer& answer);
};

/// All commands, in the order of the help.
const std::vector<Command>& commands();
const Command* findCommand(const QString& name);

QStringList fingerNames();

/// Of `names` the one that is nearest to `word`, if it is near enough to be meant.
QString suggestion(const QString& word, const QStringList& names);
/// " Did you mean 'NAME'?" or nothing.
QString didYouMean(const QString& word, const QStringList& names);

} // namespace vanto
