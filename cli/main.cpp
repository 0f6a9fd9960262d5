#include "commandline.h"
#include "outputstream.h"
#include "replylimits.h"
#include "tool.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <clocale>

#include <fcntl.h>
#include <unistd.h>

namespace vanto
{

namespace
{
/// Frames and warnings only; the other messages are for developers of the window.
void writeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const bool isFrame = context.category && QByteArray(context.category).startsWith("vanto.");
    if (isFrame || (type != QtDebugMsg && type != QtInfoMsg))
        ErrorStream::instance().writeLine(text.toLocal8Bit());
}

/// A file that is opened later, such as the port, must not take the place of a closed output.
void occupyStandardFiles()
{
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(file, F_GETFD) < 0)
            open("/dev/null", O_RDONLY); // so that writing fails; takes the lowest number
}

int reportUsage(const Invocation& invocation, const QString& error)
{
    Answer answer;
    answer.fail(ExitStatus::Usage, error);
    Output output(false, invocation.options.json);
    if (invocation.options.json)
        output.write(
            QJsonDocument(answer.toJson(invocation.command ? QLatin1String(invocation.command->name)
                                                           : QLatin1String()))
                .toJson(QJsonDocument::Compact) +
            '\n');
    output.error(answer.reason());
    return static_cast<int>(ExitStatus::Usage);
}

int showText(const QString& text)
{
    Output output(false, false);
    if (output.write(text.toUtf8()) || output.problem() == Output::Problem::Closed)
        return 0;
    output.error(output.problemText());
    return static_cast<int>(ExitStatus::File);
}
} // namespace

int runProgram(int argc, char* argv[])
{
    occupyStandardFiles();
    Invocation invocation = parseCommandLine(argc, argv);
    if (!invocation.text.isEmpty())
        return showText(invocation.text);
    if (invocation.error.isEmpty())
        invocation.error = invocation.arguments.error();
    if (!invocation.error.isEmpty())
        return reportUsage(invocation, invocation.error);

    if (invocation.options.verbose) // read when the application object is created
        qputenv("QT_LOGGING_RULES", "vanto.serialctrl.debug=true;vanto.modbus.debug=true");
    qInstallMessageHandler(writeMessage);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vantoctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTO_VERSION));
    std::setlocale(LC_MESSAGES, "C"); // the texts of the system are English, too
    ReplyLimits::current() = ReplyLimits().scaled(invocation.options.patience);
    Tool tool(invocation.options);
    return static_cast<int>(tool.run(*invocation.command, invocation.arguments));
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
