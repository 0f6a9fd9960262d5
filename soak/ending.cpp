#include "ending.h"

#include "conversation.h"
#include "dialogwatch.h"
#include "handprocess.h"
#include "windowdriver.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QProcess>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <map>

namespace vanto
{

namespace
{
constexpr int LongestWaitMs = 1500; ///< until the end comes
constexpr int EndLimitMs = 1000;    ///< from then to the end of the process
constexpr int ChildMs = 30'000;
const QByteArray Closing = "closing";
const QByteArray Midway = "closing midway";

/// What takes long. Dialogs are answered as they come up.
const std::map<QString, std::function<void(const WindowDriver&)>>& operations()
{
    static const std::map<QString, std::function<void(const WindowDriver&)>> all{
        {QStringLiteral("scan"), [](const auto& w) { w.click("pushButton_ScanDevices"); }},
        {QStringLiteral("reload"),
         [](const auto& w) {
             for (int i = 0; i < 100; ++i)
                 w.click("pushButton_BasicReloadBasic");
         }},
        {QStringLiteral("run"), [](const auto& w) { w.showPage(RunTab); }},
        {QStringLiteral("play"),
         [](const auto& w) {
             w.showPage(SequenceTab);
             w.click("pushButton_SeqLoad");
             w.click("pushButton_SeqRun");
         }},
        {QStringLiteral("calibration"),
         [](const auto& w) { w.click("pushButton_BasicRecalibrate"); }},
        {QStringLiteral("download"),
         [](const auto& w) { w.click("pushButton_BasicUpdateFirmware"); }},
    };
    return all;
}

void answerDialog(QDialog& dialog)
{
    if (qobject_cast<QFileDialog*>(&dialog))
        return chooseFile(dialog, QStringLiteral(VANTO_EXAMPLES "/wave.json"));
    if (auto* input = qobject_cast<QInputDialog*>(&dialog))
        input->setTextValue(input->comboBoxItems().isEmpty() ? QStringLiteral("1A2B")
                                                             : input->comboBoxItems().constLast());
    dialog.accept();
}

/// Whether something is being done. What waits for the server only disables the pages.
bool isMidway(const WindowDriver& tool)
{
    return Conversation::busy() || QApplication::activeModalWidget() ||
           !tool.enabled("tabWidget") || tool.enabled("pushButton_SeqStop") ||
           tool.find<QTimer>("runTimer")->isActive();
}
} // namespace

int Ending::perform(const QString& operation, int afterMs, const QString& protocol)
{
    // The debug log tells of every request that fails; what counts here are warnings.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type != QtDebugMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol}))
        return 2;
    QTcpServer silent; // takes the download's connection and says nothing
    silent.listen(QHostAddress::LocalHost);
    qputenv("VANTO_FIRMWARE_SERVER",
            QByteArray("http://127.0.0.1:") + QByteArray::number(silent.serverPort()));
    const WindowDriver tool({hand.portName()});
    tool.openHand(hand.portName());
    const DialogWatch dialogs(answerDialog);
    QTimer::singleShot(afterMs, tool.window(), [&] {
        std::printf("%s\n", (isMidway(tool) ? Midway : Closing).constData());
        std::fflush(stdout);
        if (afterMs % 2 == 0)
            tool.window()->close();
        else
            tool.trigger("action_Exit");
    });
    QTimer::singleShot(0, tool.window(), [&] { operations().at(operation)(tool); });
    return QApplication::exec();
}

int Ending::campaign(int count, quint32 seed, const QString& protocol, const QString& patience)
{
    QRandomGenerator random(seed);
    int bad = 0;
    int midway = 0;
    qint64 longest = 0;
    for (int i = 0; i < count; ++i) {
        const QString operation =
            std::next(operations().begin(), i % static_cast<int>(operations().size()))->first;
        const int afterMs = random.bounded(LongestWaitMs);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--end-during"), operation, QStringLiteral("--after"),
                     QString::number(afterMs), QStringLiteral("--protocol"), protocol,
                     QStringLiteral("--patience"), patience});
        QByteArray output;
        while (!output.contains(Closing) && child.waitForReadyRead(ChildMs))
            output += child.readAllStandardOutput();
        midway += output.contains(Midway);
        QElapsedTimer timer;
        timer.start();
        const bool ended = child.waitForFinished(ChildMs);
        const qint64 took = timer.elapsed();
        longest = std::max(longest, took);
        QByteArray errors;
        for (const QByteArray& line : child.readAllStandardError().split('\n'))
            if (!line.isEmpty() && !line.contains("This plugin does not support") &&
                !line.contains("XDG_RUNTIME_DIR"))
                errors += line + '\n';
        if (ended && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0 &&
            took < EndLimitMs * patience.toInt() && errors.isEmpty())
            continue;
        ++bad;
        std::printf("FINDING: %s, ended after %d ms: status %d in %lld ms\n%s\n",
                    qPrintable(operation), afterMs, child.exitCode(), took, errors.constData());
    }
    std::printf("%s, seed %u: %d endings, %d of them midway, longest %lld ms, %d findings\n",
                qPrintable(protocol), seed, count, midway, longest, bad);
    return 2 * midway < count ? bad + 1 : bad;
}

} // namespace vanto
