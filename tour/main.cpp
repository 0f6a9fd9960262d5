#include "calibrationprocedure.h"
#include "replylimits.h"
#include "stage.h"
#include "steps.h"
#include "theme.h"
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
constexpr unsigned LimitSeconds = 120; ///< for one theme
constexpr int FailedStatus = 1;
constexpr int UsageStatus = 2;

struct Options {
    QDir output;
    QStringList themes;
    QString language; ///< empty for English
    bool modbus;
};

void endLateTour(int)
{
    constexpr char message[] = "FAILED: the tour did not come to its end\n";
    [[maybe_unused]] const auto written = ::write(STDOUT_FILENO, message, sizeof message - 1);
    ::_exit(FailedStatus);
}

/// The offscreen platform warns on every window that it leaves sizes alone, and the program tells
/// the debug log of every node that does not answer; neither is a finding.
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

/// The platform is chosen when the application object is made, so before options are read.
void choosePlatform(int argc, char* argv[])
{
    const auto* const end = argv + argc;
    const bool asked = std::find(argv, argv + argc, std::string_view("--offscreen")) != end;
    const bool display =
        qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (asked || (!display && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

Options readOptions()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Drives the window of VantoSetting against simulated hands and takes a picture of\n"
        "every step. Exit status 0 when every step worked."));
    parser.addHelpOption();
    const QCommandLineOption output(QStringLiteral("output"),
                                    QStringLiteral("Folder for the pictures. Default: tour."),
                                    QStringLiteral("DIR"), QStringLiteral("tour"));
    const QCommandLineOption theme(
        QStringLiteral("theme"),
        QStringLiteral("dark (default), light, or both: the whole tour once in each, with a "
                       "folder for each."),
        QStringLiteral("NAME"), QStringLiteral("dark"));
    const QCommandLineOption protocol(
        QStringLiteral("protocol"),
        QStringLiteral("Of the hand that is worked with: serialctrl (default) or modbus."),
        QStringLiteral("NAME"), QStringLiteral("serialctrl"));
    const QCommandLineOption language(
        QStringLiteral("language"),
        QStringLiteral("Of the window, e.g. de_DE. Default: English. In other languages its texts "
                       "are not compared."),
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

/// An empty folder for pictures; those of an earlier tour would pass for new ones.
bool prepareFolder(const QDir& folder)
{
    if (!folder.mkpath(QStringLiteral(".")))
        return false;
    for (const QString& old : folder.entryList({QStringLiteral("[0-9][0-9]-*.png")}, QDir::Files))
        QFile::remove(folder.filePath(old));
    return true;
}

int tour(const QString& theme, const QDir& folder, TourManner manner)
{
    if (!prepareFolder(folder))
        return fail(QStringLiteral("cannot make ") + folder.path(), UsageStatus);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    QSettings(QStringLiteral("setting.ini"), QSettings::IniFormat)
        .setValue(QStringLiteral("style"), theme);

    HandProcess hands;
    if (!hands.start(tourHandOptions(manner.modbus)))
        return fail(hands.errorText(), FailedStatus);
    // A window that is painted takes a large part of the time that a hand has for an answer, and so
    // may a busy machine.
    ReplyLimits::current() = ReplyLimits().stretched(100);
    CalibrationProcedure::stageMs = 200;

    Stage stage(hands, folder.path(), manner);
    ::alarm(LimitSeconds);
    const bool passed = stage.play(tourSteps());
    ::alarm(0);
    QDir::setCurrent(QDir::rootPath());
    return passed ? 0 : FailedStatus;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    choosePlatform(argc, argv);
    std::signal(SIGALRM, endLateTour);
    qInstallMessageHandler(showMessage);
    QApplication application(argc, argv);
    const Options options = readOptions();
    if (options.themes.isEmpty())
        return fail(QStringLiteral("no such theme"), UsageStatus);

    const bool english = options.language.isEmpty();
    QLocale::setDefault(english ? QLocale::c() : QLocale(options.language));
    if (!english && !Translation::install(options.language))
        return fail(QStringLiteral("no such language"), UsageStatus);

    for (const QString& theme : options.themes) {
        const bool single = options.themes.size() == 1;
        const int status =
            tour(theme, single ? options.output : QDir(options.output.filePath(theme)),
                 {options.modbus, english});
        if (status != 0)
            return status;
    }
    std::printf("pictures in %s\n", qPrintable(options.output.path()));
    return 0;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
