#include "exittest.h"

#include "conversation.h"
#include "dialogwatch.h"
#include "handprocess.h"
#include "windowdriver.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
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
constexpr int MaxDelayMs = 1500;  ///< until the exit
constexpr int ExitLimitMs = 1000; ///< from closing to the end of the process
constexpr int ChildTimeoutMs = 120'000;
const QByteArray Closing = "closing";
const QByteArray ClosingBusy = "closing midway";

/// Long operations. A DialogWatch answers their dialogs.
const std::map<QString, std::function<void(const WindowDriver&)>>& operations()
{
    static const std::map<QString, std::function<void(const WindowDriver&)>> all{
        {QStringLiteral("scan"),
         [](const auto& driver) { driver.click("pushButton_ScanDevices"); }},
        {QStringLiteral("reload"),
         [](const auto& driver) {
             for (int i = 0; i < 100; ++i)
                 driver.click("pushButton_BasicReloadBasic");
         }},
        {QStringLiteral("run"), [](const auto& driver) { driver.showPage(RunTab); }},
        {QStringLiteral("play"),
         [](const auto& driver) {
             driver.showPage(SequenceTab);
             driver.click("pushButton_SeqLoad");
             driver.click("pushButton_SeqRun");
         }},
        {QStringLiteral("calibration"),
         [](const auto& driver) { driver.click("pushButton_BasicRecalibrate"); }},
        {QStringLiteral("download"),
         [](const auto& driver) { driver.click("pushButton_BasicUpdateFirmware"); }},
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
    if (auto* box = qobject_cast<QMessageBox*>(&dialog); box && box->button(QMessageBox::Ok))
        box->button(QMessageBox::Ok)->click();
    else
        dialog.accept();
}

/// Whether an operation is in progress. A request to the server only disables the pages.
bool isBusy(const WindowDriver& driver)
{
    return Conversation::isActive() || QApplication::activeModalWidget() ||
           !driver.enabled("tabWidget") || driver.enabled("pushButton_SeqStop") ||
           driver.find<QTimer>("runTimer")->isActive();
}
} // namespace

int ExitTest::runOnce(const QString& operation, int afterMs, const QString& protocol)
{
    // The debug log reports every failed request; only warnings matter here.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type != QtDebugMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol}))
        return 2;
    QTcpServer silent; // accepts the connection of the download, but never answers
    silent.listen(QHostAddress::LocalHost);
    qputenv("VANTO_FIRMWARE_SERVER",
            QByteArray("http://127.0.0.1:") + QByteArray::number(silent.serverPort()));
    const WindowDriver driver({hand.portName()});
    driver.openHand(hand.portName());
    const DialogWatch dialogs(answerDialog);
    QTimer::singleShot(afterMs, driver.window(), [&] {
        std::printf("%s\n", (isBusy(driver) ? ClosingBusy : Closing).constData());
        std::fflush(stdout);
        if (afterMs % 2 == 0)
            driver.window()->close();
        else
            driver.trigger("action_Exit");
    });
    QTimer::singleShot(0, driver.window(), [&] { operations().at(operation)(driver); });
    return QApplication::exec();
}

int ExitTest::run(int count, std::uint32_t seed, const QString& protocol, const QString& patience)
{
    QRandomGenerator random(seed);
    int findings = 0;
    int busy = 0;
    qint64 longest = 0;
    for (int i = 0; i < count; ++i) {
        const QString operation =
            std::next(operations().begin(), i % static_cast<int>(operations().size()))->first;
        const int afterMs = random.bounded(MaxDelayMs);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {QStringLiteral("--end-during"), operation, QStringLiteral("--after"),
                     QString::number(afterMs), QStringLiteral("--protocol"), protocol,
                     QStringLiteral("--patience"), patience});
        QByteArray output;
        while (!output.contains(Closing) && child.waitForReadyRead(ChildTimeoutMs))
            output += child.readAllStandardOutput();
        busy += output.contains(ClosingBusy);
        QElapsedTimer timer;
        timer.start();
        const bool ended = child.waitForFinished(ChildTimeoutMs);
        const qint64 took = timer.elapsed();
        longest = std::max(longest, took);
        QByteArray errors;
        for (const QByteArray& line : child.readAllStandardError().split('\n'))
            if (!line.isEmpty() && !line.contains("This plugin does not support") &&
                !line.contains("XDG_RUNTIME_DIR"))
                errors += line + '\n';
        if (ended && child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0 &&
            took < qint64{ExitLimitMs} * patience.toInt() && errors.isEmpty())
            continue;
        ++findings;
        std::printf("FINDING: %s, exit after %d ms: status %d within %lld ms\n%s\n",
                    qPrintable(operation), afterMs, child.exitCode(), took, errors.constData());
    }
    std::printf("%s, seed %u: %d exits, %d during an operation, longest %lld ms, %d findings\n",
                qPrintable(protocol), seed, count, busy, longest, findings);
    return 2 * busy < count ? findings + 1 : findings;
}

} // namespace vanto
