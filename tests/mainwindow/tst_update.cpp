#include "firmwaredownload.h"
#include "handtest.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QProgressDialog>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>

namespace
{
constexpr const char* Source = "Please select firmware source:";
constexpr const char* File = "Open update file";
constexpr const char* Power =
    "Power off the device and remove app other devices from bus, press OK "
    "when ready.\nPower on the device when prompted.";
constexpr const char* Unread = "Hardware & type not read, proceed?";
constexpr const char* Hardware = "Please select hardware type/version:";
constexpr const char* Type = "Please select firmware type:";
constexpr const char* Updated = "Firmware updated successfully";
constexpr const char* NoList = "Error when reading version file from server.";
constexpr const char* BadList = "Error when parsing version file.";
constexpr const char* NoFile = "Error when reading firmware file from server.";
constexpr const char* NotSaved = "Error when saving firmware file.";

QByteArray http(const QByteArray& body, const QByteArray& status = "200 OK", qsizetype missing = 0)
{
    return "HTTP/1.1 " + status + "\r\nLocation: /elsewhere\r\nConnection: close\r\n" +
           "Content-Length: " + QByteArray::number(body.size() + missing) + "\r\n\r\n" + body;
}

QByteArray list(const QByteArray& file)
{
    return http(R"({"hand":{"version":"1.4.8","desc":"none","file":)" + file + "}}");
}

QByteArray sample()
{
    QFile file(SAMPLE);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// Answers each path with the bytes given for it, and with silence where none are given.
class Server : public QTcpServer
{
public:
    Server()
    {
        listen(QHostAddress::LocalHost);
        qputenv("VANTO_FIRMWARE_SERVER",
                QString("http://127.0.0.1:%1").arg(serverPort()).toLatin1());
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { answer(socket); });
        });
    }
    void answer(QTcpSocket* socket)
    {
        paths.append(socket->readAll().split(' ').value(1));
        if (!answers.contains(paths.constLast()))
            return;
        const QByteArray bytes = answers[paths.constLast()];
        const qsizetype piece = bytes.size() / pieces + 1;
        for (int i = 0; i < pieces; ++i)
            QTimer::singleShot(i * pieceMs, socket, [=, this] {
                socket->write(bytes.mid(i * piece, piece));
                if (i == pieces - 1 && hangsUp)
                    socket->disconnectFromHost();
            });
    }
    QMap<QByteArray, QByteArray> answers;
    QByteArrayList paths;
    int pieces = 1, pieceMs = 0;
    bool hangsUp = true;
};
} // namespace

/// The firmware update in the real window, and its downloads.
class TestUpdate : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void downloads_data();
    void downloads();
    void silence();
    void procedure_data();
    void procedure();
    void duringTheTransfer();
    void largeFile();
    void noPort();
    void overtaken_data();
    void overtaken();

private:
    void update(const QString& source, const QByteArray& content = {}, const QString& atPower = {});

    QStringList m_dialogs; ///< that came up, by their texts
    QString m_cancelled;   ///< the dialog to reject
};

/// Goes through the dialogs. Without content the chosen file vanishes; `atPower` is a command for
/// the hand once its power is asked for.
void TestUpdate::update(const QString& source, const QByteArray& content, const QString& atPower)
{
    m_dialogs.clear();
    QFile file("file.upd");
    QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    file.close();
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        auto* input = qobject_cast<QInputDialog*>(dialog);
        auto* files = qobject_cast<QFileDialog*>(dialog);
        auto* box = qobject_cast<QMessageBox*>(dialog);
        if (!input && !files && !box)
            return;
        const auto* progress = m_tool->window()->findChild<QProgressDialog*>();
        QVERIFY(!progress || !progress->isVisible());
        QCOMPARE(dialog->windowTitle(), files ? File : "VantoSetting");
        const QString text = input ? input->labelText() : box ? box->text() : File;
        m_dialogs.append(text);
        if (text == Source)
            input->setTextValue(source);
        if (files) {
            QCOMPARE(files->nameFilters(), QStringList{"Upgrade firmware file (*.upd)"});
            files->selectFile(QFileInfo(file).absoluteFilePath());
        }
        if (text == Power && !atPower.isEmpty())
            tell(atPower);
        if (text == m_cancelled)
            dialog->reject();
        else if (text == Unread)
            box->button(QMessageBox::Yes)->click();
        else
            dialog->accept();
        if (files && content.isEmpty())
            file.remove();
    });
    source == "local" ? m_tool->click("pushButton_BasicUpdateFirmware")
                      : m_tool->trigger("action_Force_Update");
}

void TestUpdate::downloads_data()
{
    QTest::addColumn<QString>("hardware");
    QTest::addColumn<QByteArray>("versions");
    QTest::addColumn<QByteArray>("image");
    QTest::addColumn<QString>("failure");
    const QByteArray good = list(R"("a 1%?#.upd")");
    const auto row = [](const char* name, const QByteArray& versions, const QByteArray& image,
                        const char* failure, const char* hardware = "1B01") {
        QTest::newRow(name) << QString(hardware) << versions << image << QString(failure);
    };
    row("good", good, http("image"), "");
    row("list 404", http("{}", "404 Not Found"), "", NoList);
    row("list 500", http("{}", "500 Oh"), "", NoList);
    row("list elsewhere", http("{}", "302 Found"), "", NoList);
    row("list cut", http(good, "200 OK", 1), "", NoList);
    row("list no HTTP", "hello\r\n\r\n", "", NoList);
    row("list empty", http(""), "", BadList);
    row("list damaged", http(R"({"hand":)"), "", BadList);
    row("list an array", http(R"([{"file":"a"}])"), "", BadList);
    row("list of none", http("{}"), "", BadList);
    row("file 404", good, http("image", "404 Not Found"), NoFile);
    row("file elsewhere", good, http("image", "301 Moved"), NoFile);
    row("file cut", good, http("image", "200 OK", 1), NoFile);
    row("file empty", good, http(""), NoFile);
    row("no name", http(R"({"hand":{}})"), http("image"), NotSaved);
    row("no object", http(R"({"hand":"a"})"), http("image"), NotSaved);
    for (const char* name :
         {"1", "\"\"", "\".\"", "\"..\"", "\"../a\"", "\"/a\"", R"("a\\b")", R"("a\u0000")"})
        row(name, list(name), http("image"), NotSaved);
    for (const char* hardware : {"", "..", "1B/01", "1B\\01"})
        row(qPrintable(QString("hardware ") + hardware), good, http("image"), NotSaved, hardware);
    row("folder unwritable", good, http("image"), NotSaved, "unwritable");
}

void TestUpdate::downloads()
{
    QFETCH(QString, hardware);
    QFETCH(QString, failure);
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    const bool unwritable = hardware == "unwritable";
    if (unwritable)
        QVERIFY(QFile("downloaded").open(QFile::WriteOnly));
    Server server;
    const QByteArray root = "/firmwares/" + hardware.toLatin1();
    QFETCH(QByteArray, versions);
    QFETCH(QByteArray, image);
    server.answers = {{root + "/latest_version.json", versions},
                      {root + "/a%201%25%3F%23.upd", image}};

    FirmwareDownload download(hardware);
    const auto offer = download.latestReleases();
    QStringList failures{offer.failure};
    FirmwareDownload::SavedFile saved;
    if (offer.failure.isEmpty()) {
        QCOMPARE(offer.releases.keys(), QStringList{"hand"});
        saved = download.save(offer.releases["hand"]);
        failures.append(saved.failure);
    }
    QCOMPARE(failures.constLast(), failure);
    QVERIFY(!server.paths.contains("/elsewhere"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size(),
             unwritable || failure.isEmpty() ? 1 : 0);
    if (!failure.isEmpty())
        return;
    QCOMPARE(saved.path, "downloaded/1B01/a 1%?#.upd");
    QFile file(saved.path);
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), "image");
}

void TestUpdate::silence()
{
    Server server;
    const QByteArray path = "/firmwares/1B01/latest_version.json";
    FirmwareDownload download("1B01", std::chrono::milliseconds(300));
    QCOMPARE(download.latestReleases().failure, NoList);
    server.answers[path] = list("\"a\"").replace("Content-Length: ", "Content-Length: 9");
    server.hangsUp = false;
    QCOMPARE(download.latestReleases().failure, NoList);
    // Slow is not silent.
    server.answers[path] = list('"' + QByteArray(1000, 'a') + '"');
    server.pieces = 6;
    server.pieceMs = 100;
    QCOMPARE(download.latestReleases().failure, "");
}

void TestUpdate::procedure_data()
{
    QTest::addColumn<QString>("setUp"); // command at the prompt for power, or of the remote source
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("dialogs");
    // The last dialog of a row that starts with '-' is rejected.
    const auto row = [](const char* name, const char* setUp, const QByteArray& content,
                        const QStringList& dialogs) {
        QTest::newRow(name) << QString(setUp) << content << dialogs;
    };
    row("updated", "", sample(), {Source, File, Power, Updated});
    row("-source", "", sample(), {Source});
    row("-file", "", sample(), {Source, File});
    row("file missing", "", "", {Source, File, "Open file '%1/file.upd' failed."});
    row("no header", "", sample().sliced(9), {Source, File, "Invalid update file"});
    row("other hardware", "", sample().replace(7, 1, "2"),
        {Source, File, Power, "Hardware does not match type 0x1b, version 0x02."});
    row("unplugged", "unplug", sample(), {Source, File, Power, "Failed when openning port '%2'."});
    row("rejected", "fault refuse stage=record skip=5 count=4", sample(),
        {Source, File, Power, "CRC error. File damaged."});
    row("remote", "--remote", "", {Source, Type, Power, Updated});
    row("-type", "--remote", "", {Source, Type});
    row("hardware unread", "--unread", "", {Source, Unread, Hardware, Type, Power, Updated});
    row("-unread", "--unread", "", {Source, Unread});
    row("-hardware", "--unread", "", {Source, Unread, Hardware});
}

void TestUpdate::procedure()
{
    QFETCH(QString, setUp);
    QFETCH(QByteArray, content);
    QFETCH(QStringList, dialogs);
    open();
    Server server;
    server.answers = {{"/firmwares/1B01/latest_version.json", list("\"hand.upd\"")},
                      {"/firmwares/1B01/hand.upd", http(sample())}};
    const bool remote = setUp.startsWith("--");
    if (setUp == "--unread")
        m_tool->find<QLineEdit>("lineEdit_BasicHardwareTypeVersion")->clear();
    m_cancelled = *QTest::currentDataTag() == '-' ? dialogs.constLast() : QString();
    update(remote ? "remote" : "local", content, remote ? QString() : setUp);
    dialogs.replaceInStrings("%1", QDir::currentPath());
    dialogs.replaceInStrings("%2", m_hand->portName());
    QCOMPARE(m_dialogs, dialogs);
    QCOMPARE(server.paths.isEmpty(), !dialogs.contains(Type));
    QCOMPARE(m_tool->devices()->count(), m_cancelled.isEmpty() ? 0 : 1);
    QCOMPARE(m_tool->enabled("pushButton_BasicBeep"), !m_cancelled.isEmpty());
    if (!dialogs.contains(Power))
        return;
    if (dialogs.constLast() != Updated) {
        tell(setUp == "unplug" ? "replug" : "clear");
        m_tool->find<QWidget>("tabWidget")->setEnabled(true);
        m_tool->find<QPushButton>("pushButton_BasicUpdateFirmware")->setEnabled(true);
        update("local", sample());
        QCOMPARE(m_dialogs.constLast(), Updated);
    }
    QFile image(QDir::current().absoluteFilePath("image"));
    tell("image " + image.fileName());
    QVERIFY(image.open(QFile::ReadOnly));
    QCOMPARE(image.readAll(), QByteArray::fromHex(sample().sliced(9)));
    m_tool->scanFor(1);
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.8");
}

void TestUpdate::duringTheTransfer()
{
    open();
    tell("fault late stage=record skip=8 count=2 ms=300");
    MainWindow* window = m_tool->window();
    QStringList told;
    QElapsedTimer sinceUnplug;
    connect(window, &MainWindow::sig_updateProgress, this, [&](int percent) {
        auto* dialog = window->findChild<QProgressDialog*>();
        QCOMPARE(dialog->value(), percent);
        if (told.isEmpty() || !told.constLast().endsWith(dialog->labelText()))
            told.append(QString::number(percent) + ' ' + dialog->labelText());
        if (percent == 50)
            QTimer::singleShot(100, window, [&, dialog] {
                window->close();
                m_tool->trigger("action_Exit");
                QTest::keyClick(dialog, Qt::Key_Escape);
                dialog->close();
                m_tool->trigger("action_Force_Update");
                QMetaObject::invokeMethod(window, "on_pushButton_BasicUpdateFirmware_clicked");
                QVERIFY(window->isVisible() && dialog->isVisible());
                QCOMPARE(m_tool->errorText(),
                         "The firmware is being updated, please wait for the end.");
            });
        if (percent == 56 && sinceUnplug.isValid())
            QTimer::singleShot(100, window, [&] { tell("unplug"), sinceUnplug.restart(); });
    });
    const QStringList once{"0 Power up the device now", "6 Updating device firmware..."};
    update("local", sample());
    QCOMPARE(m_dialogs, (QStringList{Source, File, Power, Updated}));
    QCOMPARE(told, once);

    tell("fault late stage=record skip=9 ms=300");
    sinceUnplug.start();
    m_tool->scanFor(1);
    update("local", sample());
    QVERIFY(sinceUnplug.elapsed() < 1000);
    QCOMPARE(m_dialogs.constLast(), "Failed: Target is not responding.");
    QCOMPARE(told, once + once);
    for (const auto* timer : window->findChild<QProgressDialog*>()->findChildren<QTimer*>())
        QVERIFY(!timer->isActive() || timer->remainingTimeAsDuration() > std::chrono::hours(1));
}

void TestUpdate::largeFile()
{
    open();
    QElapsedTimer sinceBeat;
    qint64 longestGap = 0;
    QTimer beat;
    connect(&beat, &QTimer::timeout, this,
            [&] { longestGap = qMax(longestGap, sinceBeat.restart()); });
    sinceBeat.start();
    beat.start(10);
    forget();
    update("local", "HW:1B,01\n" + QByteArray(2 << 20, '0'), "unplug");
    QCOMPARE(m_dialogs.constLast(),
             QString("Failed when openning port '%1'.").arg(m_hand->portName()));
    QCOMPARE(shown().filter("Processing update file - ").size(), 101);
    QVERIFY2(longestGap < 200, qPrintable(QString::number(longestGap)));
}

void TestUpdate::noPort()
{
    m_tool = std::make_unique<WindowDriver>();
    m_tool->find<QComboBox>("comboBox_Ports")->setCurrentIndex(-1);
    update("remote");
    QCOMPARE(m_dialogs, QStringList{"Serial port not available"});
}

void TestUpdate::overtaken_data()
{
    QTest::addColumn<QString>("action");
    for (const char* action : {"pushButton_ScanDevices", "action_Exit", ""})
        QTest::newRow(action) << QString(action);
}

void TestUpdate::overtaken()
{
    QFETCH(QString, action);
    const bool scans = action == "pushButton_ScanDevices";
    open();
    forget();
    Server server;
    QElapsedTimer sinceAction;
    const auto act = [&] {
        scans              ? m_tool->click(qPrintable(action))
        : action.isEmpty() ? static_cast<void>(m_tool->window()->close())
                           : m_tool->trigger(qPrintable(action));
    };
    connect(&server, &Server::newConnection, m_tool->window(), [&] {
        QTimer::singleShot(100, m_tool->window(), [&] { sinceAction.start(), act(); });
        if (scans)
            QTimer::singleShot(400, m_tool->window(), act); // Stop
    });
    QTimer::singleShot(0, m_tool->window(), [&] {
        update("remote");
        QVERIFY(sinceAction.elapsed() < 1000);
    });
    if (!scans)
        QCOMPARE(QApplication::exec(), 0);
    QTRY_COMPARE(m_dialogs, QStringList{Source});
    QTRY_COMPARE(shown().contains("Trying node '0x01'..."), scans);
}

QTEST_MAIN(TestUpdate)
#include "tst_update.moc"
