// Time from start to first paint, alternately of the program and of its form alone.

#include "figures.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <array>
#include <chrono>
#include <cstdio>

namespace vanto
{

namespace
{
constexpr int Starts = 31;
constexpr int WarmUps = 3; ///< of each program, to cache its files
constexpr int LimitMs = 30'000;
constexpr double Bar = 1.3;

/// Milliseconds that the program printed; negative if it did not print them.
double startOnce(const QString& program)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(
        QStringLiteral("VANTO_BENCH_START"),
        QString::number(
            std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count()));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationDirPath() + QLatin1Char('/') + program,
                  QStringList());
    if (!process.waitForFinished(LimitMs) || process.exitCode() != 0)
        return -1;
    bool isNumber = false;
    const double ms = process.readAllStandardOutput().trimmed().toDouble(&isNumber);
    return isNumber ? ms : -1;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    silenceLog();
    const QCoreApplication application(argc, argv);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    QSettings(QStringLiteral("setting.ini"), QSettings::IniFormat)
        .setValue(QStringLiteral("style"), QStringLiteral("dark"));

    const std::array programs{QStringLiteral("bench_start_program"),
                              QStringLiteral("bench_start_form")};
    std::array<std::vector<double>, programs.size()> times;
    for (int start = -WarmUps; start < Starts; ++start) {
        for (std::size_t i = 0; i < programs.size(); ++i) {
            const double ms = startOnce(programs[i]);
            if (ms < 0) {
                std::fprintf(stderr, "%s was not painted\n", qPrintable(programs[i]));
                return 1;
            }
            if (start >= 0)
                times[i].push_back(ms);
        }
    }
    const bool holds = report({"start to first paint, against the bare form", median(times[0]),
                               "ms", median(times[1]), Bar});
    return holds ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
