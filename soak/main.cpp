// Monkey test: uses the real window with a simulated hand at random.

#include "alternatetest.h"
#include "edittest.h"
#include "exittest.h"
#include "halttest.h"
#include "handclock.h"
#include "killtest.h"
#include "losstest.h"
#include "monitor.h"
#include "monkey.h"
#include "replylimits.h"
#include "stoptest.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace vanto
{

namespace
{
/// Actions and requests per second; a run with fewer of them tests too little.
constexpr int MinPerSecond = 2;

struct Option {
    const char* name;
    const char* description;
    const char* valueName;
    const char* value; ///< if the option is not given
};

constexpr Option Options[] = {
    {"seconds", "Duration in seconds.", "N", "60"},
    {"seed", "Seed of the random choices.", "N", "1"},
    {"protocol", "Protocol: serialctrl or modbus.", "NAME", "serialctrl"},
    {"stream", "Most of the time, let the monitor read as fast as possible.", "", ""},
    {"endings", "Exit N times during long operations instead.", "N", ""},
    {"stops", "Stop a running sequence at N random moments instead.", "N", ""},
    {"halts", "Halt the hand at N random moments instead, with each kind of hand.", "N", ""},
    {"hand", "Only with this kind of hand: plain, latch-stop or speed-at-once.", "KIND", ""},
    {"losses", "Unplug the hand N times and plug it in again instead.", "N", ""},
    {"alternate", "Open one port N times instead, with vantoctl and the window in turn.", "N", ""},
    {"open-port", "Open the first hand at this port in the window once instead.", "PORT", ""},
    {"edits", "Undo and redo random edits of a sequence, with N seeds, instead.", "N", ""},
    {"kills", "Kill the program N times while it edits a sequence instead.", "N", ""},
    {"end-during", "Exit once during this operation instead.", "NAME", ""},
    {"after", "Delay before that exit in ms.", "N", "100"},
    {"edit-until-killed", "Edit in the working folder, as the program that --kills kills.", "", ""},
    {"patience", "Multiply all time-outs by N, for a busy machine.", "N", "1"},
};

int runMonkey(int seconds, std::uint32_t seed, const QString& protocol, int patience, bool streams)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol,
                     QStringLiteral("--node"), QStringLiteral("2:") + protocol,
                     QStringLiteral("--speed"), QStringLiteral("8")})) {
        std::fprintf(stderr, "%s\n", qPrintable(hand.errorText()));
        return 2;
    }
    const HandClock clock(hand, 1);
    Monitor monitor(hand, Sanitized, patience > 1, &clock);
    Monkey monkey(hand, monitor, seed);
    if (streams)
        monkey.stream();
    monkey.start(seconds);
    QApplication::exec();
    monitor.checkTrace();
    if (std::min(monkey.actions(), monitor.exchanges()) * patience < MinPerSecond * seconds)
        monitor.addFinding(QStringLiteral("too few actions or requests"));
    std::printf(
        "%s, seed %u: %d s, %d actions, %d exchanges, %d of them with faults, %d overlaps, %d of "
        "them explained by a late reply, %d writes of halts in quiet phases, %d writes of "
        "restores, longest gap %lld ms, %d findings\n",
        qPrintable(protocol), seed, seconds, monkey.actions(), monitor.exchanges(),
        monitor.faults(), monitor.overlaps().overlaps(), monitor.overlaps().explained(),
        monitor.haltWrites(), monitor.restoreWrites(), monitor.longestGapMs(),
        static_cast<int>(monitor.findings().size()));
    for (const auto& [name, count] : monkey.counts())
        std::printf("    %-18s %d\n", qPrintable(name), count);
    return monitor.findings().isEmpty() ? 0 : 1;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Uses the window at random. The exit status is 0 if there are no findings."));
    parser.addHelpOption();
    for (const auto& [name, description, valueName, value] : Options)
        parser.addOption({QLatin1String(name), QLatin1String(description), QLatin1String(valueName),
                          QLatin1String(value)});
    parser.process(application);
    const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };
    const int patience = value("patience").toInt();
    ReplyLimits::current() = ReplyLimits().scaled(patience);

    if (parser.isSet(QStringLiteral("edit-until-killed")))
        return KillTest::edit();
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const QString protocol = value("protocol");
    const auto seed = value("seed").toUInt();
    if (parser.isSet(QStringLiteral("endings")))
        return ExitTest::run(value("endings").toInt(), seed, protocol, value("patience"));
    if (parser.isSet(QStringLiteral("stops")))
        return StopTest::run(value("stops").toInt(), seed, protocol);
    if (parser.isSet(QStringLiteral("halts")))
        return HaltTest::run(value("halts").toInt(), seed, protocol, value("hand"), patience);
    if (parser.isSet(QStringLiteral("losses")))
        return LossTest::run(value("losses").toInt(), seed, protocol, patience);
    if (parser.isSet(QStringLiteral("alternate")))
        return AlternateTest::run(value("alternate").toInt(), seed, protocol, value("patience"));
    if (parser.isSet(QStringLiteral("open-port"))) {
        qputenv("QT_LOGGING_RULES", "default.debug=false");
        return AlternateTest::openOnce(value("open-port"));
    }
    if (parser.isSet(QStringLiteral("edits")))
        return EditTest::run(value("edits").toInt(), seed);
    if (parser.isSet(QStringLiteral("kills")))
        return KillTest::run(value("kills").toInt(), seed, patience);
    if (parser.isSet(QStringLiteral("end-during"))) {
        qputenv("QT_LOGGING_RULES", "default.debug=false");
        return ExitTest::runOnce(value("end-during"), value("after").toInt(), protocol);
    }
    return runMonkey(value("seconds").toInt(), seed, protocol, patience,
                     parser.isSet(QStringLiteral("stream")));
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
