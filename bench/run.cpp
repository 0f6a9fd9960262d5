// The duration of a tick of the Run page, also with clicks, and of a reload of the Setting page.

#include "bench.h"
#include "figures.h"
#include "runpage.h"
#include "settingpage.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <set>

namespace vanto
{

namespace
{
constexpr int Repeats = 201;
constexpr int FingerCount = 6;
constexpr double TickMs = 1; ///< interval of checks for a reply
constexpr double MsPerNs = 1e-6;
constexpr double RunTickBar = 1.1;
constexpr double ReloadBar = 1.2;

constexpr int SlowBaud = 45'000; ///< about 4 ms for the reading of one current
constexpr int ClickMs = 150;
constexpr int ClickingMs = 20'000;
constexpr double LeastRefreshesPerSecond = 7;
constexpr char ReadCurrent = 0x06;
constexpr char SetPosition = 0x4C;
constexpr int CommandAt = 4;
constexpr int FingerAt = 6;
constexpr int PositionAt = 7;

double medianMs(const std::function<void()>& act)
{
    std::vector<double> times;
    for (int i = 0; i < Repeats; ++i) {
        QElapsedTimer timer;
        timer.start();
        act();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    return median(times);
}

bool measureCosts()
{
    Bench bench;
    bench.tool.showPage(RunTab);
    auto* runPage = bench.tool.find<RunPage>(QStringLiteral("tab_Run"));
    const double tick = medianMs([&] { runPage->updateCurrent(); });
    bench.tool.showPage(BasicTab);
    bench.hand.clearTrace();
    auto* settingPage = bench.tool.find<SettingPage>(QStringLiteral("tab_Setting"));
    settingPage->reloadSettingInfo();
    const auto exchanges = static_cast<double>(bench.hand.requests().size());
    const double reload = medianMs([&] { settingPage->reloadSettingInfo(); });
    const bool tickGood =
        report({"run tick, six currents", tick, "ms", FingerCount * TickMs, RunTickBar});
    const bool reloadGood =
        report({"reload of the hidden Setting page", reload, "ms", exchanges * TickMs, ReloadBar});
    return tickGood && reloadGood;
}

/// Clicks Set repeatedly while the currents are read over a slow line.
bool clickSet()
{
    Bench bench({QStringLiteral("--baud"), QString::number(SlowBaud)});
    bench.tool.showPage(RunTab);
    // Waits until the last time-out text of the scan is cleared.
    while (!bench.tool.errorText().isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    bench.hand.clearTrace();
    int clicks = 0;
    QStringList errors;
    QTimer clicking;
    QObject::connect(&clicking, &QTimer::timeout, [&] {
        ++clicks;
        bench.tool.setField("lineEdit_RunPos3", QString::number(clicks));
        bench.tool.click("pushButton_RunSetPos3");
        const QString error = bench.tool.errorText();
        if (!error.isEmpty())
            errors.append(error);
    });
    clicking.start(ClickMs);
    QTimer::singleShot(ClickingMs, &clicking, [] { QCoreApplication::exit(0); });
    QApplication::exec();
    clicking.stop();

    std::multiset<int> sent;
    int refreshes = 0;
    int overlaps = 0;
    for (const TracedFrame& request : bench.hand.requests()) {
        const auto byte = [&](int at) { return static_cast<unsigned char>(request.bytes[at]); };
        if (request.bytes[CommandAt] == SetPosition)
            sent.insert(byte(PositionAt) + 256 * byte(PositionAt + 1));
        refreshes += request.bytes[CommandAt] == ReadCurrent && byte(FingerAt) == FingerCount - 1;
        overlaps += request.marks.contains(QLatin1String("overlap"));
    }
    const bool eachOnce = static_cast<int>(sent.size()) == clicks && *sent.begin() == 1 &&
                          std::set<int>(sent.begin(), sent.end()).size() == sent.size();
    for (const QString& error : std::set<QString>(errors.begin(), errors.end()))
        std::printf("     %s\n", qPrintable(error));
    const double perSecond = refreshes * 1000.0 / ClickingMs;
    const bool good =
        eachOnce && overlaps == 0 && errors.isEmpty() && perSecond >= LeastRefreshesPerSecond;
    std::printf("%s %d clicks on Set, %zu commands sent, %d overlaps, %d errors, currents read "
                "%.1f times a second (at least %.0f)\n",
                good ? "ok  " : "OVER", clicks, sent.size(), overlaps,
                static_cast<int>(errors.size()), perSecond, LeastRefreshesPerSecond);
    return good;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    silenceLog();
    const QApplication application(argc, argv);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const bool fast = measureCosts();
    const bool responsive = clickSet();
    return fast && responsive ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
