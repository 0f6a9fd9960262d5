// The time that vantoctl adds: to one exchange as a whole process, to the exchanges of batch, and
// to the samples of monitor; and how soon it ends after a signal.

#include "figures.h"
#include "handcall.h"
#include "handprocess.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <csignal>
#include <cstdio>

namespace vanto
{

namespace
{
constexpr int Starts = 101;
constexpr int Gets = 2001;
constexpr int Rounds = 5;
constexpr int RoundSeconds = 2;
constexpr int PacedSeconds = 60;
constexpr int PacedRate = 100; ///< samples per second
constexpr int Fingers = 6;
constexpr double StartBar = 1.25;
constexpr double BatchBar = 1.10;
constexpr double MonitorBar = 1 / 0.95;
constexpr double LateBar = 1;
constexpr int Endings = 11;
constexpr double EndMs = 500; ///< after a signal
constexpr double EndBar = 1;
constexpr double MsPerNs = 1e-6;
constexpr double MsPerS = 1000;

QString pathOf(const char* program)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(program);
}

/// The duration of a process in ms; negative if it fails.
double timeOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    const bool good = process.waitForFinished() && process.exitCode() == 0;
    return good ? static_cast<double>(timer.nsecsElapsed()) * MsPerNs : -1;
}

bool measureStarts(const QString& port)
{
    std::vector<double> command;
    std::vector<double> bare;
    const QStringList words{"get",    "current", "0",          "--port",    port,
                            "--node", "2",       "--protocol", "serialctrl"};
    for (int i = 0; i < Starts; ++i) { // they alternate, because the load of the machine varies
        command.push_back(timeOf(pathOf("vantoctl"), words));
        bare.push_back(timeOf(pathOf("bench_bare_exchange"), {port, "2"}));
        if (command.back() < 0 || bare.back() < 0)
            return false;
    }
    return report({"vantoctl get, whole process", median(command), "ms", median(bare), StartBar});
}

double medianExchange(const QString& port)
{
    const auto adapter =
        VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, SerialCtrlMajorVersion, 0);
    if (!adapter->connect(port.toUtf8().constData(), BaudRate))
        return -1;
    std::vector<double> times;
    for (int i = 0; i < Gets; ++i) {
        const LineHold line;
        std::uint16_t current = 0;
        QElapsedTimer timer;
        timer.start();
        if (adapter->getFingerCurrent(2, 0, &current) != ResultCode::Success)
            return -1;
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    adapter->disconnect();
    return median(times);
}

/// The median time of a get in a batch, from one answer to the next.
double medianGet(const QString& port)
{
    QProcess process;
    process.start(pathOf("vantoctl"), {"batch", "--port", port, "--protocol", "serialctrl"});
    std::vector<double> times;
    for (int i = 0; i < Gets; ++i) {
        QElapsedTimer timer;
        timer.start();
        process.write("2 get current 0\n");
        while (!process.canReadLine())
            if (!process.waitForReadyRead())
                return -1;
        if (!process.readLine().contains("\"status\":0"))
            return -1;
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    process.closeWriteChannel();
    process.waitForFinished();
    return median(times);
}

/// The lines of a monitor without its header.
QList<QByteArray> monitor(const QString& port, const char* protocol, const QString& rate,
                          int seconds)
{
    QProcess process;
    process.start(pathOf("vantoctl"),
                  {"monitor", "--port", port, "--node", "2", "--protocol", protocol, "--rate", rate,
                   "--quiet", "--for", QString::number(seconds)});
    constexpr int Patience = 30;
    if (!process.waitForFinished((seconds + Patience) * static_cast<int>(MsPerS)))
        return {};
    return process.readAllStandardOutput().trimmed().split('\n').mid(1);
}

/// The mean time of `Fingers` reads by the adapter itself.
double meanOfReads(const QString& port, PROTOCOL_TYPE protocol, int seconds)
{
    const int major =
        protocol == PROTOCOL_TYPE_SERIALCTRL ? SerialCtrlMajorVersion : ModbusMajorVersion;
    const auto adapter =
        VantoProtocol::getProtocolInstance(protocol, static_cast<unsigned char>(major), 0);
    if (!adapter->connect(port.toUtf8().constData(), BaudRate))
        return -1;
    QElapsedTimer timer;
    timer.start();
    int samples = 0;
    for (; timer.elapsed() < seconds * qint64{1000}; ++samples) {
        const LineHold line;
        for (std::uint8_t finger = 0; finger < Fingers; ++finger) {
            std::uint16_t current = 0;
            if (adapter->getFingerCurrent(2, finger, &current) != ResultCode::Success)
                return -1;
        }
    }
    adapter->disconnect();
    return static_cast<double>(timer.nsecsElapsed()) * MsPerNs / samples;
}

/// Compares the samples with the reads of which they consist. Both alternate, because the load of
/// the machine varies.
bool measureMonitor(const char* what, const QString& port, PROTOCOL_TYPE protocol)
{
    const char* name = protocol == PROTOCOL_TYPE_SERIALCTRL ? "serialctrl" : "modbus";
    std::vector<double> samples;
    std::vector<double> reads;
    for (int round = 0; round < Rounds; ++round) {
        const auto lines = monitor(port, name, QStringLiteral("max"), RoundSeconds);
        samples.push_back(MsPerS * RoundSeconds / static_cast<double>(lines.size()));
        reads.push_back(meanOfReads(port, protocol, RoundSeconds));
        if (lines.isEmpty() || reads.back() < 0) {
            std::fprintf(stderr, "%s: the hand has not answered in time\n", what);
            return false;
        }
    }
    return report({what, median(samples), "ms", median(reads), MonitorBar});
}

/// The share of samples that come more than a period after the one before is due.
bool measureLateness(const QString& port)
{
    const auto samples = monitor(port, "serialctrl", QString::number(PacedRate), PacedSeconds);
    double before = 0;
    int late = 0;
    for (const QByteArray& sample : samples) {
        const double seconds = sample.split(',').value(1).toDouble();
        late += seconds - before > 2.0 / PacedRate ? 1 : 0;
        before = seconds;
    }
    const double missing = std::max(0.0, 1.0 * PacedRate * PacedSeconds - double(samples.size()));
    return report({"late or missing samples of 60 s at 100 Hz", late + missing, "",
                   0.01 * PacedRate * PacedSeconds, LateBar});
}
/// The median time from SIGINT to the end of a command that waits for its motion or its next
/// sample.
bool measureEnds(HandProcess& hand, const char* what, const QStringList& words)
{
    std::vector<double> times;
    for (int i = 0; i < Endings; ++i) {
        hand.clearTrace();
        QProcess process;
        process.start(pathOf("vantoctl"), words + QStringList{"--port", hand.portName(), "--node",
                                                              "2", "--protocol", "serialctrl"});
        constexpr int Running = 8; ///< requests
        if (!process.waitForStarted())
            return false;
        while (hand.requests().size() < Running)
            if (process.waitForFinished(1)) {
                std::fprintf(stderr, "%s: the hand has not answered in time\n", what);
                return false;
            }
        QElapsedTimer timer;
        timer.start();
        ::kill(static_cast<pid_t>(process.processId()), SIGINT);
        if (!process.waitForFinished())
            return false;
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    return report({what, median(times), "ms", EndMs, EndBar});
}
} // namespace

int runProgram(int argc, char* argv[])
{
    silenceLog();
    const QCoreApplication application(argc, argv);
    HandProcess fast;
    HandProcess paced;
    if (!fast.start({"--node", "2"}) ||
        !paced.start({"--node", "2:serialctrl", "--node", "2:modbus", "--baud", "115200"}))
        return 1;
    bool good = measureStarts(fast.portName());
    const double exchange = medianExchange(fast.portName());
    const double get = medianGet(fast.portName());
    if (exchange < 0 || get < 0) {
        std::fprintf(stderr, "a get has failed\n");
        return 1;
    }
    good &= report({"get in a batch", get, "ms", exchange, BatchBar});
    good &= measureMonitor("sample of six currents", fast.portName(), PROTOCOL_TYPE_SERIALCTRL);
    good &= measureMonitor("the same at 115200 baud", paced.portName(), PROTOCOL_TYPE_SERIALCTRL);
    good &= measureMonitor("the same over Modbus", paced.portName(), PROTOCOL_TYPE_MODBUS_RTU);
    good &= measureEnds(fast, "end of monitor after SIGINT", {"monitor", "--rate", "100"});
    good &= measureEnds(fast, "end of move --wait after SIGINT",
                        {"move", "1", "60000", "--speed", "1", "--wait"});
    good &= measureLateness(fast.portName());
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
