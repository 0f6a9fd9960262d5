#include "updatecommand.h"

#include "automaticbackup.h"
#include "firmwaredownload.h"
#include "handvalues.h"
#include "interruption.h"
#include "portchoice.h"
#include "porterror.h"
#include "tool.h"
#include "updatefirmware.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QUrl>

namespace vanto
{

namespace
{
constexpr int EventIntervalMs = 10; ///< while a file is read

/// The folder of a download, which is removed at the end, also if a signal ends the transfer.
class DownloadFolder : public QObject
{
public:
    explicit DownloadFolder(const Tool& tool) : m_before(QDir::currentPath())
    {
        QDir::setCurrent(m_folder.path());
        connect(&tool, &Tool::sig_ending, this, [this] { m_folder.remove(); });
    }
    ~DownloadFolder() override { QDir::setCurrent(m_before); }

private:
    QTemporaryDir m_folder;
    QString m_before;
};

/// Type and version of the hardware, as given or as the hand says.
QString findHardware(Tool& tool, const Arguments& arguments, Answer& answer)
{
    if (arguments.has("--hardware"))
        return arguments.option("--hardware").toUpper();
    if (!tool.options().node) {
        answer.fail(ExitStatus::Usage,
                    QStringLiteral("A download needs --node, to read the hardware of the hand, or "
                                   "--hardware."));
        return {};
    }
    if (!tool.hand().open())
        return {};
    HandCall call = tool.hand().call();
    return findHandValue(QStringLiteral("hardware"))->read(call, 0).toString();
}

/// The exit status depends on whether the server can be reached. Not after a signal, which is the
/// reason then.
void failDownload(const FirmwareDownload& server, const QString& failure, Answer& answer)
{
    if (server.isAbandoned())
        return;
    if (server.hasConnectionFailed())
        answer.fail(ExitStatus::NoAnswer, failure, ResultCode::Timeout);
    else
        answer.fail(ExitStatus::File, failure);
}

QString download(Tool& tool, const Arguments& arguments, Answer& answer)
{
    const QString hardware = findHardware(tool, arguments, answer);
    if (hardware.isEmpty() || answer.hasFailed())
        return {};
    tool.hand().close();
    qputenv("VANTO_FIRMWARE_SERVER", arguments.option("--server").toUtf8());
    FirmwareDownload server(hardware);
    QObject::connect(&tool, &Tool::sig_interrupted, &server, &FirmwareDownload::abandon);
    const auto offer = server.latestReleases();
    if (!offer.failure.isEmpty()) {
        failDownload(server, offer.failure, answer);
        return {};
    }
    if (server.isAbandoned())
        return {};
    const QStringList types = offer.releases.keys();
    const QString type = arguments.has("--type") ? arguments.option("--type")
                         : types.size() == 1     ? types.constFirst()
                                                 : QString();
    if (!types.contains(type)) {
        answer.fail(ExitStatus::Usage,
                    QStringLiteral("Choose the type of the firmware with --type: %1.")
                        .arg(types.join(QLatin1String(", "))));
        return {};
    }
    const FirmwareRelease release = offer.releases.value(type);
    const auto saved = server.save(release);
    if (!saved.failure.isEmpty())
        failDownload(server, saved.failure, answer);
    answer.data.insert(QStringLiteral("version"), release.version);
    return saved.path;
}

/// The transfer has no way to stop. The boot loader of the hand waits for the next update.
void endTransfer(Tool& tool, Answer& answer)
{
    answer.fail(ExitStatus::Interrupted,
                QStringLiteral(
                    "Interrupted. The hand may have no firmware until an update has succeeded."));
    tool.endNow();
}

void failUpdate(const QString& port, const UpdateResult& result, Answer& answer)
{
    switch (result.cause) {
    case UpdateFailure::None:
        break;
    case UpdateFailure::File:
        answer.fail(ExitStatus::File, result.failure);
        break;
    case UpdateFailure::PortNotOpened:
        answer.fail(ExitStatus::PortNotOpened,
                    result.failure + QLatin1Char(' ') + describePortProblem(port));
        break;
    case UpdateFailure::Refused:
        answer.fail(ExitStatus::Refused, result.failure);
        break;
    case UpdateFailure::NoAnswer:
        answer.fail(ExitStatus::NoAnswer, result.failure, ResultCode::Timeout);
        break;
    }
}

void transfer(Tool& tool, const QString& port, const QString& path, Answer& answer)
{
    if (Interruption::isRequested())
        return;
    const auto connection =
        QObject::connect(&tool, &Tool::sig_interrupted, &tool, [&] { endTransfer(tool, answer); });
    const LineHold line;
    QElapsedTimer events;
    events.start();
    QString shown;
    const UpdateResult result = tryFirmwareUpdate(
        port, static_cast<QSerialPort::BaudRate>(BaudRate), path,
        [&](const QString& text) {
            // Called a million times for a large file, mostly with the same text object.
            if (tool.options().verbose && !text.isSharedWith(shown)) {
                shown = text;
                tool.output().note(text);
            }
            if (events.hasExpired(EventIntervalMs)) {
                QCoreApplication::processEvents();
                events.start();
            }
        },
        [&](int percent) { tool.output().showProgress(percent, 100); });
    QObject::disconnect(connection);
    tool.output().showProgress(0, 0);
    if (result.cause == UpdateFailure::None)
        answer.addLine(updateSucceededText());
    else
        failUpdate(port, result, answer);
}

void update(Tool& tool, Arguments& arguments, Answer& answer)
{
    const bool hasFile = !arguments.values.isEmpty();
    if (hasFile == arguments.has("--server")) {
        answer.fail(ExitStatus::Usage, QStringLiteral("Give either a file or --server."));
        return;
    }
    // An empty text would stand for another server.
    const QUrl url(arguments.option("--server"));
    const bool isHttp =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!hasFile && (!isHttp || url.host().isEmpty())) {
        answer.fail(ExitStatus::Usage, QStringLiteral("The server must be an http or https URL."));
        return;
    }
    std::optional<DownloadFolder> folder;
    QString path = arguments.values.value(0);
    if (!hasFile) {
        folder.emplace(tool);
        path = download(tool, arguments, answer);
        if (answer.hasFailed() || Interruption::isRequested())
            return;
    }
    if (const QString failure = checkUpdateFile(path); !failure.isEmpty()) {
        answer.fail(ExitStatus::File, failure);
        return;
    }
    if (const QString failure = loadUpdateFile(path).failure; !failure.isEmpty()) {
        answer.fail(ExitStatus::File, failure);
        return;
    }
    const auto port = tool.hand().portName();
    if (!port)
        return;
    if (examinePort(*port) != PortProblem::None) {
        tool.hand().reportNotOpened(*port, PROTOCOL_TYPE_SERIALCTRL);
        return;
    }
    if (!arguments.has("--no-backup"))
        AutomaticBackup::saveClosed(tool, answer);
    if (!arguments.has("--yes") && !tool.confirm(updatePrompt())) {
        answer.fail(ExitStatus::Usage, QStringLiteral("Not confirmed."));
        return;
    }
    transfer(tool, *port, path, answer);
}
} // namespace

std::vector<Command> updateCommands()
{
    return {{"update",
             "Update the firmware of the hand",
             Effect::NoHand,
             false,
             {{"file", 0, 1, "An update file"}},
             {{"--server", "URL", 1, "Download the file from this firmware server"},
              {"--type", "TYPE", 1, "Type of the firmware on the server"},
              {"--hardware", "TTVV", 1,
               "Hardware for the download, four hexadecimal digits; read from the hand if omitted"},
              {"--no-backup", nullptr, 0, "Do not save the parameters of the hand before"},
              {"--yes", nullptr, 0, "Do not ask for the power cycle"}},
             update}};
}

} // namespace vanto
