// The monkey: the real window, a simulated hand, and everything at random for as long as wanted.

#include "ending.h"
#include "monkey.h"
#include "replylimits.h"
#include "stops.h"
#include "watch.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace vanto
{

#if defined(__SANITIZE_ADDRESS__)
constexpr bool Sanitized = true;
#else
constexpr bool Sanitized = false;
#endif

namespace
{
/// Fewer than so many actions and requests a second are no use of the window.
constexpr int LeastPerSecond = 2;

int useAtRandom(int seconds, quint32 seed, const QString& protocol, int patience)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol,
                     QStringLiteral("--node"), QStringLiteral("2:") + protocol,
                     QStringLiteral("--speed"), QStringLiteral("8")})) {
        std::fprintf(stderr, "%s\n", qPrintable(hand.errorText()));
        return 2;
    }
    Watch watch(hand, Sanitized, patience > 1);
    Monkey monkey(hand, watch, seed);
    monkey.start(seconds);
    QApplication::exec();
    watch.lookAtWire();
    if (std::min(monkey.actions(), watch.exchanges()) * patience < LeastPerSecond * seconds)
        watch.find(QStringLiteral("hardly anything was done"));
    std::printf("%s, seed %u: %d s, %d actions, %d requests on the wire, longest gap %lld ms, "
                "%d findings\n",
                qPrintable(protocol), seed, seconds, monkey.actions(), watch.exchanges(),
                watch.longestGapMs(), static_cast<int>(watch.findings().size()));
    for (const auto& [name, count] : monkey.counts())
        std::printf("    %-18s %d\n", qPrintable(name), count);
    return watch.findings().isEmpty() ? 0 : 1;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Exit status 0 when nothing was found."));
    parser.addHelpOption();
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("How long."),
                                     QStringLiteral("N"), QStringLiteral("60"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Of the choices."),
                                  QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption protocol(QStringLiteral("protocol"),
                                      QStringLiteral("serialctrl or modbus."),
                                      QStringLiteral("NAME"), QStringLiteral("serialctrl"));
    const QCommandLineOption endings(
        QStringLiteral("endings"),
        QStringLiteral("Instead of that, end the program N times in the middle of something."),
        QStringLiteral("N"));
    const QCommandLineOption stops(
        QStringLiteral("stops"),
        QStringLiteral("Instead of that, stop a play at N random moments."), QStringLiteral("N"));
    const QCommandLineOption endDuring(QStringLiteral("end-during"),
                                       QStringLiteral("One such end, during this operation."),
                                       QStringLiteral("NAME"));
    const QCommandLineOption after(QStringLiteral("after"), QStringLiteral("Milliseconds."),
                                   QStringLiteral("N"), QStringLiteral("100"));
    const QCommandLineOption patience(
        QStringLiteral("patience"),
        QStringLiteral("Time-outs N times as long, for a machine that does other work as well."),
        QStringLiteral("N"), QStringLiteral("1"));
    parser.addOptions({seconds, seed, protocol, endings, stops, endDuring, after, patience});
    parser.process(application);
    const int factor = parser.value(patience).toInt();
    ReplyLimits::current() = ReplyLimits().stretched(factor);

    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const QString kind = parser.value(protocol);
    if (parser.isSet(endings))
        return Ending::campaign(parser.value(endings).toInt(), parser.value(seed).toUInt(), kind,
                                parser.value(patience));
    if (parser.isSet(stops))
        return Stops::campaign(parser.value(stops).toInt(), parser.value(seed).toUInt(), kind);
    if (parser.isSet(endDuring)) {
        qputenv("QT_LOGGING_RULES", "default.debug=false");
        return Ending::perform(parser.value(endDuring), parser.value(after).toInt(), kind);
    }
    return useAtRandom(parser.value(seconds).toInt(), parser.value(seed).toUInt(), kind, factor);
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
