// Whether loading and saving a sequence is linear, and how often the player polls a hand.

#include "figures.h"
#include "handprocess.h"
#include "sequencemanager.h"
#include "sequenceplayer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <array>
#include <cstdio>

namespace vanto
{

namespace
{
constexpr double MsPerNs = 1e-6;
constexpr std::array Sizes{1'000, 10'000, 100'000}; ///< steps
constexpr std::array Repeats{51, 11, 5};
constexpr double LinearBar = 1.5; ///< time per step, compared with a tenth of the steps

constexpr int HandNode = 2;
constexpr int PlayingMs = 10'000;
constexpr int LongestDelayMs = 65'535;
constexpr double MsPerSecond = 1000;

/// A protocol and the request that each poll sends once, which reads the positions of all fingers.
struct Line {
    const char* name;
    PROTOCOL_TYPE type;
    int major;
    QByteArray request; ///< its first bytes after the address
    int at;             ///< index of these bytes in the frame
    double leastPolls;  ///< a second
};

double nsPerStep(int repeats, int steps, const std::function<void()>& act)
{
    std::vector<double> times;
    for (int i = 0; i < repeats; ++i) {
        QElapsedTimer timer;
        timer.start();
        act();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / steps);
    }
    return median(times);
}

bool measureFiles()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("steps.json")));
    SequenceManager manager;
    double saveBefore = 0;
    double loadBefore = 0;
    bool good = true;
    for (std::size_t i = 0; i < Sizes.size(); ++i) {
        while (manager.sequenceData().sequences.size() < Sizes[i]) {
            const int n = static_cast<int>(manager.sequenceData().sequences.size());
            manager.insertSequenceDataItem(
                n, {QList<int>(6, n % 65'536), QList<int>(6, 255), n % 999});
        }
        const double save =
            nsPerStep(Repeats[i], Sizes[i], [&] { good &= manager.saveSequenceData(file); });
        const double load =
            nsPerStep(Repeats[i], Sizes[i], [&] { good &= manager.loadSequenceData(file); });
        good &= manager.sequenceData().sequences.size() == Sizes[i];
        std::printf("     %6d steps: %8.1f ms to save, %8.1f ms to load, %5.1f MB\n", Sizes[i],
                    save * Sizes[i] * MsPerNs, load * Sizes[i] * MsPerNs,
                    static_cast<double>(file.size()) / 1e6);
        if (i > 0) {
            good &= report({"saving a step, ten times as many", save, "ns", saveBefore, LinearBar});
            good &=
                report({"loading a step, ten times as many", load, "ns", loadBefore, LinearBar});
        }
        saveBefore = save;
        loadBefore = load;
    }
    return good;
}

/// Plays one step, which takes longer than the measurement, on a hand at rest.
bool measurePolls(const Line& line)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("%1:serialctrl").arg(HandNode),
                     QStringLiteral("--node"), QStringLiteral("%1:modbus").arg(HandNode)}))
        qFatal("%s", qPrintable(hand.errorText()));
    const auto adapter =
        VantoProtocol::getProtocolInstance(line.type, static_cast<unsigned char>(line.major), 0);
    SequencePlayer player;
    player.setVantoProtocol(adapter, HandNode);
    SequenceData data;
    data.sequences.append({QList<int>(6, 0), QList<int>(6, 255), LongestDelayMs});
    if (!adapter->connect(hand.portName().toUtf8().constData(), BaudRate) ||
        !player.play(data, 0, -1, false))
        return false;
    hand.clearTrace();
    QEventLoop loop;
    QTimer::singleShot(PlayingMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    const bool played = player.isPlaying();
    player.stop();
    adapter->disconnect();

    int polls = 0;
    for (const TracedFrame& frame : hand.requests())
        polls += frame.bytes.sliced(line.at).startsWith(line.request);
    const double perSecond = polls * MsPerSecond / PlayingMs;
    const bool good = played && perSecond >= line.leastPolls;
    std::printf("%-4s polls a second over %-36s %9.1f       (at least %.0f)\n",
                good ? "ok" : "OVER", line.name, perSecond, line.leastPolls);
    return good;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    silenceLog();
    const QCoreApplication application(argc, argv);
    const Line lines[] = {
        {"SerialCtrl", PROTOCOL_TYPE_SERIALCTRL, SerialCtrlMajorVersion, QByteArray("\x0F", 1), 4,
         95},
        {"Modbus", PROTOCOL_TYPE_MODBUS_RTU, ModbusMajorVersion, QByteArray("\x03\x04\x79", 3), 1,
         45},
    };
    bool good = measureFiles();
    for (const Line& line : lines)
        good &= measurePolls(line);
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
