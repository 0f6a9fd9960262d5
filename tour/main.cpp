#include "calibrationprocedure.h"
#include "replylimits.h"
#include "steps.h"
#include "theme.h"
#include "tourrunner.h"
#include "translation.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QLocale>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string_view>

#include <unistd.h>

namespace vanto
{

namespace
{
constexpr unsigned LimitSeconds = 300; ///< for one theme
constexpr int FailedStatus = 1;
constexpr int UsageStatus = 2;

struct Options {
    QDir output;
    QStringList themes;
    QString language; ///< empty for English
    bool modbus;
};

void endOverdueTour(int)
{
    constexpr char message[] = "FAILED: the tour did not finish in time\n";
    [[maybe_unused]] const auto written = ::write(STDOUT_FILENO, message, sizeof message - 1);
    ::_exit(FailedStatus);
}

/// Ignores the warning of the offscreen platform for each window, and the debug messages of the
/// program about nodes that do not answer.
void showMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg && !text.contains(QLatin1String("propagateSizeHints")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

int fail(const QString& reason, int status)
{
    std::fprintf(stderr, "vanto-tour: %s\n", qPrintable(reason));
    return status;
}

/// Selects the platform before the options are read, because QApplication needs it.
void selectPlatform(int argc, char* argv[])
{
    const auto* const end = argv + argc;
    const bool requested = std::find(argv, argv + argc, std::string_view("--offscreen")) != end;
    const bool display =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (requested || (!display && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

Options readOptions()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Operates the window of VantoSetting with simulated hands and saves a screenshot of\n"
        "every step. The exit status is 0 if every step succeeds."));
    parser.addHelpOption();
    const QCommandLineOption output(QStringLiteral("output"),
                                    QStringLiteral("Folder for the screenshots. Default: tour."),
                                    QStringLiteral("DIR"), QStringLiteral("tour"));
    const QCommandLineOption theme(
        QStringLiteral("theme"),
        QStringLiteral("dark (default), light, or both, which runs the tour in each theme, "
                       "with a folder for each."),
        QStringLiteral("NAME"), QStringLiteral("dark"));
    const QCommandLineOption protocol(
        QStringLiteral("protocol"),
        QStringLiteral("Protocol of the hand in use: serialctrl (default) or modbus."),
        QStringLiteral("NAME"), QStringLiteral("serialctrl"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("Language of the window, e.g. de_DE. Default: English. Texts are checked "
                       "in English only."),
        QStringLiteral("LOCALE"));
    const QCommandLineOption offscreen(QStringLiteral("offscreen"),
                                       QStringLiteral("Show no window, even with a display."));
    parser.addOptions({output, theme, protocol, language, offscreen});
    parser.process(*qApp);

    const QString name = parser.value(theme);
    const bool both = name == QLatin1String("both");
    return {QDir(QDir::current().absoluteFilePath(parser.value(output))),
            both                            ? Theme::names()
            : Theme::names().contains(name) ? QStringList{name}
                                            : QStringList(),
            parser.value(language), parser.value(protocol) == QLatin1String("modbus")};
}

/// Creates the folder and removes the screenshots of an earlier tour.
bool prepareFolder(const QDir& folder)
{
    if (!folder.mkpath(QStringLiteral(".")))
        return false;
    for (const QString& old : folder.entryList({QStringLiteral("[0-9][0-9]-*.png")}, QDir::Files))
        QFile::remove(folder.filePath(old));
    return true;
}

int runTour(const QString& theme, const QDir& folder, TourOptions options)
{
    if (!prepareFolder(folder))
        return fail(QStringLiteral("cannot create ") + folder.path(), UsageStatus);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    QSettings(QStringLiteral("setting.ini"), QSettings::IniFormat)
        .setValue(QStringLiteral("style"), theme);

    HandProcess hands;
    if (!hands.start(tourHandOptions(options.modbus)))
        return fail(hands.errorText(), FailedStatus);
    // Painting, and a busy machine, take much of the time that a hand has for a reply.
    ReplyLimits::current() = ReplyLimits().scaled(100);
    CalibrationProcedure::stageMs = 200;

    TourRunner tour(hands, folder.path(), options);
    ::alarm(LimitSeconds);
    const bool passed = tour.run(tourSteps());
    ::alarm(0);
    QDir::setCurrent(QDir::rootPath());
    return passed ? 0 : FailedStatus;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    selectPlatform(argc, argv);
    std::signal(SIGALRM, endOverdueTour);
    qInstallMessageHandler(showMessage);
    QApplication application(argc, argv);
    const Options options = readOptions();
    if (options.themes.isEmpty())
        return fail(QStringLiteral("unknown theme"), UsageStatus);

    const bool english = options.language.isEmpty();
    QLocale::setDefault(english ? QLocale::c() : QLocale(options.language));
    if (!english && !Translation::install(options.language))
        return fail(QStringLiteral("unknown language"), UsageStatus);

    for (const QString& theme : options.themes) {
        const bool single = options.themes.size() == 1;
        const int status =
            runTour(theme, single ? options.output : QDir(options.output.filePath(theme)),
                    {options.modbus, english});
        if (status != 0)
            return status;
    }
    std::printf("screenshots in %s\n", qPrintable(options.output.path()));
    return 0;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
