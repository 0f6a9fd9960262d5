#include "ending.h"

#include "conversation.h"
#include "handprocess.h"
#include "mainwindow.h"
#include "openhand.h"
#include "pageindex.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QInputDialog>
#include <QProcess>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTabWidget>
#include <QTcpServer>
#include <QTimer>

#include <cstdio>
#include <functional>
#include <map>

namespace
{
constexpr int LongestWaitMs = 1500; ///< until the end comes
constexpr int EndLimitMs = 1000;    ///< from then to the end of the process
constexpr int ChildMs = 30'000;
const QByteArray Closing = "closing";
const QByteArray Midway = "closing midway";

void click(const MainWindow& window, const char* name)
{
    window.findChild<QPushButton*>(QLatin1String(name))->click();
}

void showPage(const MainWindow& window, int page)
{
    window.findChild<QTabWidget*>(QStringLiteral("tabWidget"))->setCurrentIndex(page);
}

/// What takes long. Dialogs are answered while they come up.
const std::map<QString, std::function<void(const MainWindow&)>>& operations()
{
    static const std::map<QString, std::function<void(const MainWindow&)>> all{
        {QStringLiteral("scan"), [](const auto& w) { click(w, "pushButton_ScanDevices"); }},
        {QStringLiteral("reload"),
         [](const auto& w) {
             for (int i = 0; i < 100; ++i)
                 click(w, "pushButton_BasicReloadBasic");
         }},
        {QStringLiteral("run"), [](const auto& w) { showPage(w, RunPage); }},
        {QStringLiteral("play"),
         [](const auto& w) {
             showPage(w, SequencePage);
             click(w, "pushButton_SeqLoad");
             click(w, "pushButton_SeqRun");
         }},
        {QStringLiteral("calibration"),
         [](const auto& w) { click(w, "pushButton_BasicRecalibrate"); }},
        {QStringLiteral("download"),
         [](const auto& w) { click(w, "pushButton_BasicUpdateFirmware"); }},
    };
    return all;
}

void answerDialogs()
{
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible())
        return;
    if (auto* files = qobject_cast<QFileDialog*>(dialog))
        files->selectFile(QStringLiteral(VANTO_EXAMPLES "/wave.json"));
    if (auto* input = qobject_cast<QInputDialog*>(dialog))
        input->setTextValue(input->comboBoxItems().isEmpty() ? QStringLiteral("1A2B")
                                                             : input->comboBoxItems().constLast());
    dialog->accept();
}

/// Whether something is being done. What waits for the server only disables the pages.
bool isMidway(const MainWindow& window)
{
    return Conversation::busy() || QApplication::activeModalWidget() ||
           !window.findChild<QTabWidget*>(QStringLiteral("tabWidget"))->isEnabled() ||
           window.findChild<QPushButton*>(QStringLiteral("pushButton_SeqStop"))->isEnabled() ||
           window.findChild<QTimer*>(QStringLiteral("runTimer"))->isActive();
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
    qputenv("VANTO_PORTS", hand.portName().toUtf8());
    QTcpServer silent; // takes the download's connection and says nothing
    silent.listen(QHostAddress::LocalHost);
    qputenv("VANTO_FIRMWARE_SERVER",
            QByteArray("http://127.0.0.1:") + QByteArray::number(silent.serverPort()));
    MainWindow window;
    window.show();
    openHand(window, hand.portName());
    QTimer dialogs;
    QObject::connect(&dialogs, &QTimer::timeout, &answerDialogs);
    dialogs.start(20);
    QTimer::singleShot(afterMs, &window, [&] {
        std::printf("%s\n", (isMidway(window) ? Midway : Closing).constData());
        std::fflush(stdout);
        if (afterMs % 2 == 0)
            window.close();
        else
            window.findChild<QAction*>(QStringLiteral("action_Exit"))->trigger();
    });
    QTimer::singleShot(0, &window, [&] { operations().at(operation)(window); });
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
