// The monitor of the window: the time of a replot, and the samples it takes compared with those of
// vantoctl.

#include "bench.h"
#include "figures.h"
#include "readingmonitor.h"

#ifdef VANTO_HAVE_PLOT
#include "monitorplot.h"
#endif

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <ctime>

namespace vanto
{

namespace
{
constexpr int Replots = 31;
constexpr int SamplesPerSecond = 100;
constexpr std::int64_t ShownSeconds = 300;
constexpr double ReplotLimitMs = 5;
constexpr int PlotWidth = 1000; ///< pixels
constexpr int PlotHeight = 600;
constexpr int Rounds = 5; ///< alternately, because the load of the machine varies
constexpr int RoundSeconds = 2;
constexpr double RateBar = 1 / 0.9;
constexpr double SerialRate = 70; ///< samples of six currents a second, at 115200 baud
constexpr double ModbusRate = 42;
constexpr double MaxReplotRate = 15;
constexpr double MsPerNs = 1e-6;
constexpr int MsPerS = 1000;

#ifdef VANTO_HAVE_PLOT
/// Processor time of this thread, which does not depend on the load of the machine.
double processorMs()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * MsPerS + static_cast<double>(time.tv_nsec) * MsPerNs;
}

/// Twelve curves of random values.
bool measureReplot()
{
    SampleBuffer buffer;
    Sample sample;
    std::uint32_t random = 1;
    const ChannelSet channels = channelsOf(Quantity::Current) | channelsOf(Quantity::Position);
    for (std::int64_t i = 0; i < ShownSeconds * SamplesPerSecond; ++i) {
        sample.timeUs = i * UsPerSecond / SamplesPerSecond;
        for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
            random = random * 1'664'525 + 1'013'904'223;
            sample.values[channel] = static_cast<std::int32_t>(random >> 20);
        }
        buffer.append(sample);
    }
    MonitorPlot plot(PlotSource::of(&buffer), nullptr);
    plot.resize(PlotWidth, PlotHeight);
    plot.setChannels(channels);
    plot.show();
    QApplication::processEvents();
    const auto medianOf = [&](bool isNew) {
        std::vector<double> times;
        for (int i = 0; i < Replots; ++i) {
            if (isNew)
                plot.clear();
            const double begin = processorMs();
            plot.showTime(i * UsPerSecond / SamplesPerSecond,
                          ShownSeconds * UsPerSecond + i * UsPerSecond / SamplesPerSecond);
            times.push_back(processorMs() - begin);
        }
        return median(times);
    };
    const bool good =
        report({"replot of 5 min of 12 noisy curves", medianOf(false), "ms", ReplotLimitMs, 1});
    return report({"the same, without kept columns", medianOf(true), "ms", ReplotLimitMs, 1}) &&
           good;
}
#endif

void wait(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Samples of six currents a second.
double rateOfWindow()
{
    int currents = 0;
    QObject context;
    QObject::connect(&ReadingMonitor::instance(), &ReadingMonitor::sig_read, &context,
                     [&](const Reading& reading) {
                         if (reading.quantity == Quantity::Current)
                             ++currents;
                     });
    QElapsedTimer timer;
    timer.start();
    wait(RoundSeconds * MsPerS);
    return currents * 1000.0 / FingerCount / static_cast<double>(timer.elapsed());
}

double rateOfVantoctl(const QString& port, const QString& protocol)
{
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/vantoctl"),
                  {QStringLiteral("monitor"), QStringLiteral("--port"), port,
                   QStringLiteral("--node"), QStringLiteral("1"), QStringLiteral("--protocol"),
                   protocol, QStringLiteral("--rate"), QStringLiteral("max"),
                   QStringLiteral("--quiet"), QStringLiteral("--for"),
                   QString::number(RoundSeconds)});
    process.waitForFinished();
    return static_cast<double>(process.readAllStandardOutput().count('\n') - 1) / RoundSeconds;
}

/// Counts the paint events of the plot.
class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

bool compareRates(const char* protocol, const QStringList& options, const char* what, double least)
{
    const QString name = QLatin1String(protocol);
    const QStringList all =
        QStringList{QStringLiteral("--node"), QStringLiteral("1:") + name} + options;
    BenchHand hand(all);
    BenchHand other(all); // of vantoctl, as a port has one user
    const WindowDriver tool({hand.portName()});
    tool.openHand(hand.portName());
    tool.trigger(QStringLiteral("action_Monitor"));
    tool.find<QCheckBox>(QStringLiteral("checkBox_MonitorPosition"))->click();
    tool.find<QComboBox>(QStringLiteral("comboBox_MonitorRate"))->setCurrentIndex(3);
    PaintCounter paints;
#ifdef VANTO_HAVE_PLOT
    tool.find<MonitorPlot>(QStringLiteral("monitorPlot"))
        ->findChild<QWidget*>()
        ->installEventFilter(&paints);
#endif
    wait(MsPerS);
    paints.count = 0;
    std::vector<double> window;
    std::vector<double> vantoctl;
    for (int round = 0; round < Rounds; ++round) {
        window.push_back(rateOfWindow());
        tool.trigger(QStringLiteral("action_Monitor"));
        vantoctl.push_back(rateOfVantoctl(other.portName(), name));
        tool.trigger(QStringLiteral("action_Monitor"));
    }
    const double painted = static_cast<double>(paints.count) / (Rounds * RoundSeconds);
    std::printf("     %s: window %.1f, vantoctl %.1f samples a second, %.1f replots a second\n",
                what, median(window), median(vantoctl), painted);
    bool good = report({what, 1000 / median(window), "ms", 1000 / median(vantoctl), RateBar});
    if (least > 0)
        good &=
            report({"the same, against the line", 1000 / median(window), "ms", 1000 / least, 1});
    return good && report({"replots", painted, "1/s", MaxReplotRate, 1.05});
}
} // namespace

int runProgram(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    silenceLog();
    const QApplication application(argc, argv);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const QStringList paced{QStringLiteral("--baud"), QStringLiteral("115200")};
    bool good = true;
#ifdef VANTO_HAVE_PLOT
    good &= measureReplot();
#endif
    good &= compareRates("serialctrl", {}, "six currents in the window", 0);
    good &= compareRates("serialctrl", paced, "the same at 115200 baud", SerialRate);
    good &= compareRates("modbus", paced, "the same over Modbus", ModbusRate);
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
