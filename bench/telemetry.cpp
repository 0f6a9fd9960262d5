// The rate of the monitor's samples, compared with a loop that reads the same values.

#include "figures.h"
#include "handprocess.h"
#include "samplebuffer.h"
#include "telemetryreader.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr std::uint8_t HandNode = 2;
constexpr int Rounds = 10; ///< alternately, because the load of the machine varies
constexpr int SweepsPerRound = 30;
constexpr double SampleBar = 1.05;
constexpr double MsPerNs = 1e-6;
constexpr int PlotColumns = 1000;
constexpr double MemoryLimitMiB = 64;
constexpr double ReduceLimitMs = 10; ///< of one row of a plot, to stay below the time-outs

double readAll(const HandTarget& target)
{
    QElapsedTimer timer;
    timer.start();
    for (int sweep = 0; sweep < SweepsPerRound; ++sweep) {
        for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
            HandCall call(target);
            std::uint16_t current = 0;
            if (call.attempt<&VantoProtocol::getFingerCurrent>(finger, &current) !=
                ResultCode::Success)
                return -1;
        }
    }
    return static_cast<double>(timer.nsecsElapsed()) * MsPerNs / SweepsPerRound;
}

double sampleAll(TelemetryReader& reader)
{
    QEventLoop loop;
    int count = 0;
    QElapsedTimer timer;
    const auto connection = QObject::connect(&reader, &TelemetryReader::sig_sample, &loop, [&] {
        if (++count == SweepsPerRound)
            loop.quit();
    });
    timer.start();
    reader.start();
    loop.exec();
    reader.stop();
    QObject::disconnect(connection);
    return static_cast<double>(timer.nsecsElapsed()) * MsPerNs / SweepsPerRound;
}

bool compareRates(PROTOCOL_TYPE protocol, const QStringList& options, const char* what)
{
    const bool modbus = protocol == PROTOCOL_TYPE_MODBUS_RTU;
    const auto adapter = VantoProtocol::getProtocolInstance(protocol, modbus ? 1 : 3, 0);
    HandProcess hand;
    const QString node = modbus ? QStringLiteral("2:modbus") : QStringLiteral("2:serialctrl");
    if (!hand.start(QStringList{QStringLiteral("--node"), node} + options) ||
        !adapter->connect(hand.portName().toUtf8().constData(), BaudRate)) {
        std::fprintf(stderr, "the hand cannot be opened\n");
        return false;
    }
    const Generation generation;
    const HandTarget target{adapter, HandNode, generation.token()};
    const TelemetryClock clock;
    TelemetryReader reader({[&] { return std::optional(target); }, {}}, clock);
    reader.setChannels(channelsOf(Quantity::Current));
    reader.setRate(TelemetryReader::AsFastAsPossible);
    std::vector<double> loops;
    std::vector<double> samples;
    for (int round = 0; round < Rounds; ++round) {
        loops.push_back(readAll(target));
        samples.push_back(sampleAll(reader));
    }
    adapter->disconnect();
    return report({what, median(samples), "ms", median(loops), SampleBar});
}

/// Memory of this process that is in use, in MiB.
double residentMiB()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    constexpr double PagesPerMiB = 256;
    return file.open(QFile::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() / PagesPerMiB
                                      : 0;
}

/// One channel of a full buffer, and its memory.
bool measureReduction()
{
    const double before = residentMiB();
    SampleBuffer buffer;
    Sample sample;
    for (std::size_t i = 0; i < SampleBuffer::MaxMarkers; ++i)
        buffer.addMarker({sample.timeUs, QStringLiteral("Set Thumb root: %1").arg(i)});
    for (std::size_t i = 0; i < buffer.capacity(); ++i) {
        sample.timeUs += UsPerSecond / 100;
        sample.values[0] = static_cast<std::int32_t>(i * 7919 % 1000);
        buffer.append(sample);
    }
    std::vector<double> times;
    for (int i = 0; i < Rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        if (buffer.reduce(0, 0, sample.timeUs + 1, PlotColumns).size() != PlotColumns)
            return false;
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    const double used = residentMiB() - before;
    if (before <= 0 || !report({"memory of a full buffer", used, "MiB", MemoryLimitMiB, 1}))
        return false;
    return report({"one line of a plot, full buffer", median(times), "ms", ReduceLimitMs, 1});
}
} // namespace

int runProgram(int argc, char* argv[])
{
    silenceLog();
    const QCoreApplication application(argc, argv);
    const QStringList paced{QStringLiteral("--baud"), QStringLiteral("115200")};
    bool good = compareRates(PROTOCOL_TYPE_SERIALCTRL, {}, "sample of six currents");
    good &= compareRates(PROTOCOL_TYPE_SERIALCTRL, paced, "the same at 115200 baud");
    good &= compareRates(PROTOCOL_TYPE_MODBUS_RTU, paced, "the same over Modbus");
    good &= measureReduction();
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
