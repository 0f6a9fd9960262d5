// Monkey test: uses the real window with a simulated hand at random.

#include "exittest.h"
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

#if defined(__SANITIZE_ADDRESS__)
constexpr bool Sanitized = true;
#else
constexpr bool Sanitized = false;
#endif

namespace
{
/// Actions and requests per second; a run with fewer of them tests too little.
constexpr int MinPerSecond = 2;

int runMonkey(int seconds, std::uint32_t seed, const QString& protocol, int patience)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol,
                     QStringLiteral("--node"), QStringLiteral("2:") + protocol,
                     QStringLiteral("--speed"), QStringLiteral("8")})) {
        std::fprintf(stderr, "%s\n", qPrintable(hand.errorText()));
        return 2;
    }
    Monitor monitor(hand, Sanitized, patience > 1);
    Monkey monkey(hand, monitor, seed);
    monkey.start(seconds);
    QApplication::exec();
    monitor.checkTrace();
    if (std::min(monkey.actions(), monitor.exchanges()) * patience < MinPerSecond * seconds)
        monitor.addFinding(QStringLiteral("too few actions or requests"));
    std::printf("%s, seed %u: %d s, %d actions, %d requests on the wire, longest gap %lld ms, "
                "%d findings\n",
                qPrintable(protocol), seed, seconds, monkey.actions(), monitor.exchanges(),
                monitor.longestGapMs(), static_cast<int>(monitor.findings().size()));
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
    const QCommandLineOption seconds(QStringLiteral("seconds"),
                                     QStringLiteral("Duration in seconds."), QStringLiteral("N"),
                                     QStringLiteral("60"));
    const QCommandLineOption seed(QStringLiteral("seed"),
                                  QStringLiteral("Seed of the random choices."),
                                  QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption protocol(QStringLiteral("protocol"),
                                      QStringLiteral("Protocol: serialctrl or modbus."),
                                      QStringLiteral("NAME"), QStringLiteral("serialctrl"));
    const QCommandLineOption endings(QStringLiteral("endings"),
                                     QStringLiteral("Exit N times during long operations instead."),
                                     QStringLiteral("N"));
    const QCommandLineOption stops(
        QStringLiteral("stops"),
        QStringLiteral("Stop a running sequence at N random moments instead."),
        QStringLiteral("N"));
    const QCommandLineOption endDuring(QStringLiteral("end-during"),
                                       QStringLiteral("Exit once during this operation instead."),
                                       QStringLiteral("NAME"));
    const QCommandLineOption after(QStringLiteral("after"),
                                   QStringLiteral("Delay before that exit in ms."),
                                   QStringLiteral("N"), QStringLiteral("100"));
    const QCommandLineOption patience(
        QStringLiteral("patience"),
        QStringLiteral("Multiply all time-outs by N, for a busy machine."), QStringLiteral("N"),
        QStringLiteral("1"));
    parser.addOptions({seconds, seed, protocol, endings, stops, endDuring, after, patience});
    parser.process(application);
    const int factor = parser.value(patience).toInt();
    ReplyLimits::current() = ReplyLimits().scaled(factor);

    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const QString kind = parser.value(protocol);
    if (parser.isSet(endings))
        return ExitTest::run(parser.value(endings).toInt(), parser.value(seed).toUInt(), kind,
                             parser.value(patience));
    if (parser.isSet(stops))
        return StopTest::run(parser.value(stops).toInt(), parser.value(seed).toUInt(), kind);
    if (parser.isSet(endDuring)) {
        qputenv("QT_LOGGING_RULES", "default.debug=false");
        return ExitTest::runOnce(parser.value(endDuring), parser.value(after).toInt(), kind);
    }
    return runMonkey(parser.value(seconds).toInt(), parser.value(seed).toUInt(), kind, factor);
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
