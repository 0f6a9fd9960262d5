#include "fileserver.h"
#include "firmwaredownload.h"
#include "handtest.h"
#include "testmain.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTimer>

namespace vanto
{

namespace
{
using Http::Cut;
using Http::Ok;
using Http::Silent;
constexpr const char* NoList = "Error when reading version file from server.";
constexpr const char* BadList = "Error when parsing version file.";
constexpr const char* NoFile = "Error when reading firmware file from server.";
constexpr const char* FileName = R"("a 1%?#.upd")";
constexpr const char* NotSaved = "Error when saving firmware file.";

/// A letter for each dialog of the update.
const QMap<QChar, QString> Dialogs{
    {'s', "Please select firmware source:"},
    {'f', "Open update file"},
    {'p', "Power off the device and remove app other devices from bus, press OK when ready.\n"
          "Power on the device when prompted."},
    {'q', "Hardware & type not read, proceed?"},
    {'h', "Please select hardware type/version:"},
    {'t', "Please select firmware type:"},
    {'u', "Firmware updated successfully"}};

QByteArray sample()
{
    QFile file(SAMPLE);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// A version file with this many types.
QByteArray longList(int types)
{
    QByteArray text = "{";
    for (int i = 0; i < types; ++i)
        text += "\"" + QByteArray::number(i) + "\":{},";
    return text + "\"hand\":{\"file\":" + FileName + "}}";
}

QByteArray list(const QByteArray& file)
{
    return R"({"hand":{"version":"1.4.8","desc":"none","file":)" + file + "}}";
}

struct Download {
    const char *list, *listStatus, *file, *fileStatus, *failure, *hardware = "1B01", *link = "";
};
const QMap<const char*, Download> Downloads{
    {"good", {FileName, Ok, "image", Ok, ""}},
    {"list 404", {FileName, Http::NotFound, "", Ok, NoList}},
    {"list elsewhere", {FileName, "302 Found", "", Ok, NoList}},
    {"list not sent", {FileName, Silent, "", Ok, NoList}},
    {"list cut", {FileName, Cut, "", Ok, NoList}},
    {"list damaged", {"{", Ok, "", Ok, BadList}},
    {"list an array", {"[1]", Ok, "", Ok, BadList}},
    {"file 500", {FileName, Ok, "image", "500 Oh", NoFile}},
    {"file cut", {FileName, Ok, "image", Cut, NoFile}},
    {"file empty", {FileName, Ok, "", Ok, NoFile}},
    {"file in drips", {FileName, Ok, "drips", Ok, NoFile}},
    {"list of 1000", {"1000", Ok, "image", Ok, ""}},
    {"list too long", {"1001", Ok, "image", Ok, BadList}},
    {"list too large", {"large", Ok, "image", Ok, NoList}},
    {"no members", {R"({"hand":1})", Ok, "image", Ok, NotSaved}},
    {"folder", {R"("..")", Ok, "image", Ok, NotSaved}},
    {"other folder", {R"("../a")", Ok, "image", Ok, NotSaved}},
    {"backslash", {R"("a\\b")", Ok, "image", Ok, NotSaved}},
    {"hardware elsewhere", {FileName, Ok, "image", Ok, NotSaved, "../1B01"}},
    {"folder unwritable", {FileName, Ok, "image", Ok, NotSaved, "unwritable"}},
    {"folder linked", {FileName, Ok, "image", Ok, NotSaved, "1B01", "downloaded"}},
    {"hardware linked", {FileName, Ok, "image", Ok, NotSaved, "1B01", "downloaded/1B01"}},
    {"file linked", {FileName, Ok, "image", Ok, NotSaved, "1B01", "downloaded/1B01/a 1%?#.upd"}},
};

struct Procedure {
    QString dialogs; ///< letters; the last dialog is rejected unless it reports the outcome
    QString setUp, failure;
    QByteArray content = sample();
};
const QMap<const char*, Procedure> Procedures{
    {"local", {"sfpu", "", ""}},
    {"no source", {"s", "", ""}},
    {"no file", {"sf", "", ""}},
    {"missing", {"sf!", "", "Open file '%1/file.upd' failed.", ""}},
    {"headerless", {"sf!", "", "Invalid update file", "0000"}},
    {"hardware", {"sfp!", "", "Hardware does not match type 0x1b, version 0x02.", "HW:1B,2\n00"}},
    {"unplugged", {"sfp!", "unplug", "Failed when openning port '%2'."}},
    {"unplugged later", {"sfp!", "midway", "Failed: Target is not responding."}},
    {"large",
     {"sfp!", "unplug", "Failed when openning port '%2'.",
      QByteArray("HW:1B,01\n") + QByteArray(2 << 20, '0')}},
    {"rejected", {"sfp!", "fault refuse stage=record count=4", "CRC error. File damaged."}},
    {"no port", {"!", "no port", "Serial port not available"}},
    {"remote", {"stpu", "remote", ""}},
    {"no type", {"st", "remote", ""}},
    {"unread", {"sqhtpu", "unread", ""}},
    {"no hardware", {"sqh", "unread", ""}},
};

template<class Row>
void addRows(const QMap<const char*, Row>& rows)
{
    QTest::addColumn<Row>("row");
    for (auto row = rows.begin(); row != rows.end(); ++row)
        QTest::newRow(row.key()) << *row;
}
} // namespace

/// The firmware update in the real window, and its downloads.
class TestUpdate : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void downloads_data() { addRows(Downloads); }
    void downloads();
    void procedure_data() { addRows(Procedures); }
    void procedure();
    void duringTheTransfer();
    void portsRefreshed();
    void cancelled();

private:
    void update(const QString& source, const QByteArray& content = {}, const QString& atPower = {});

    QString m_dialogs;    ///< letters of those shown
    QString m_lastText;   ///< of the last dialog
    QString m_rejectedAt; ///< value of m_dialogs at which the dialog is rejected
    bool m_readingSeen = false;
};

/// Answers the dialogs. Without content the chosen file is removed; `atPower` is a command for the
/// hand at the prompt for its power.
void TestUpdate::update(const QString& source, const QByteArray& content, const QString& atPower)
{
    m_dialogs.clear();
    m_readingSeen = false;
    QFile file(QDir::current().absoluteFilePath("file.upd"));
    QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    file.close();
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        auto* input = qobject_cast<QInputDialog*>(dialog);
        auto* files = qobject_cast<QFileDialog*>(dialog);
        auto* box = qobject_cast<QMessageBox*>(dialog);
        if (auto* progress = qobject_cast<QProgressDialog*>(dialog)) {
            m_readingSeen = progress->labelText() == "Wait a moment...";
            return;
        }
        for (const auto* progress : m_tool->window()->findChildren<QProgressDialog*>())
            QVERIFY(!progress->isVisible());
        QCOMPARE(dialog->windowTitle(), files ? Dialogs['f'] : "VantoSetting");
        m_lastText = input ? input->labelText() : box ? box->text() : dialog->windowTitle();
        const QChar letter = Dialogs.key(m_lastText, '!');
        m_dialogs.append(letter);
        if (input && letter == 's')
            input->setTextValue(source);
        if (files && content.isEmpty())
            connect(files, &QDialog::accepted, this, [&] { file.remove(); });
        if (letter == 'p' && !atPower.isEmpty())
            command(atPower);
        m_dialogs == m_rejectedAt ? dialog->reject()
        : letter == 'q'           ? box->button(QMessageBox::Yes)->click()
        : files                   ? chooseFile(*files, file.fileName())
                                  : dialog->accept();
    });
    source == "local" ? m_tool->click("pushButton_BasicUpdateFirmware")
                      : m_tool->trigger("action_Force_Update");
}

void TestUpdate::downloads()
{
    QFETCH(Download, row);
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    const bool unwritable = row.hardware == QString("unwritable");
    if (unwritable)
        QVERIFY(QFile("downloaded").open(QFile::WriteOnly));
    const QTemporaryDir elsewhere; // nothing may be written there
    const bool linked = *row.link != 0;
    if (linked) {
        QVERIFY(QDir().mkpath(QFileInfo(row.link).path()));
        QVERIFY(QFile::link(elsewhere.path() + (strchr(row.link, '%') ? "/new" : ""), row.link));
    }
    FileServer server;
    server.drips = row.file == QByteArray("drips");
    const QByteArray root = QByteArray("/firmwares/") + row.hardware;
    const QByteArray whole = strchr("[{", *row.list) ? row.list
                             : isdigit(*row.list)    ? longList(QByteArray(row.list).toInt() - 1)
                             : *row.list == 'l'      ? QByteArray(2 << 20, ' ') + list(FileName)
                                                     : list(row.list);
    server.answers = {{root + "/latest_version.json", Http::answer(whole, row.listStatus)},
                      {root + "/a%201%25%3F%23.upd", Http::answer(row.file, row.fileStatus)}};
    using namespace std::chrono_literals;
    FirmwareDownload download(row.hardware,
                              {row.listStatus == Silent ? 300ms : 30s, server.drips ? 3s : 60s});
    const auto offer = download.latestReleases();
    const auto saved = offer.failure.isEmpty() ? download.save(offer.releases["hand"])
                                               : FirmwareDownload::SavedFile{};
    QCOMPARE(offer.failure + saved.failure, row.failure);
    QVERIFY(!server.paths.contains("/elsewhere"));
    const bool good = saved.path == "downloaded/1B01/a 1%?#.upd";
    QCOMPARE(good, *row.failure == 0);
    QCOMPARE(QDir().entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size(),
             good || unwritable || linked);
    QVERIFY(QDir(elsewhere.path()).isEmpty());
    QFile file(saved.path);
    QVERIFY(!good || (file.open(QFile::ReadOnly) && file.readAll() == row.file));
}

void TestUpdate::procedure()
{
    QFETCH(Procedure, row);
    expectTimeouts(300); // the boot loader does not answer requests
    open();
    FileServer server;
    server.answers = {{"/firmwares/1B01/latest_version.json", Http::answer(list(R"("hand.upd")"))},
                      {"/firmwares/1B01/hand.upd", Http::answer(sample())}};
    if (row.setUp == "unread")
        m_tool->find<QLineEdit>("lineEdit_BasicHardwareTypeVersion")->clear();
    if (row.setUp == "no port")
        m_tool->ports()->setCurrentIndex(-1);
    if (row.setUp == "midway")
        connect(m_tool->window(), &MainWindow::sig_updateProgress, this, [this](int percent) {
            if (percent == 50 && m_dialogs.startsWith("sf"))
                m_hand->command("unplug");
        });
    const bool rejects = !row.dialogs.endsWith('u') && !row.dialogs.endsWith('!');
    m_rejectedAt = rejects ? row.dialogs : "";
    const bool local = row.dialogs.startsWith("sf");
    update(local ? "local" : "remote", row.content,
           local && row.setUp != "midway" ? row.setUp : "");
    QCOMPARE(m_dialogs, row.dialogs);
    row.failure.replace("%1", QDir::currentPath()).replace("%2", m_hand->portName());
    QCOMPARE(row.failure.isEmpty() ? "" : m_lastText, row.failure);
    QVERIFY(m_readingSeen || row.content.size() < 1 << 20);
    QCOMPARE(server.paths.isEmpty(), !m_dialogs.contains('t'));
    const bool handStays = rejects || row.dialogs == "sf!";
    QCOMPARE(m_tool->devices()->count(), handStays);
    QCOMPARE(m_tool->enabled("pushButton_BasicBeep"), handStays);
    if (!m_dialogs.contains('p'))
        return;
    if (!row.failure.isEmpty()) {
        m_hand->command("replug");
        command("clear");
        update("remote");
        QCOMPARE(m_dialogs, "sqhtpu");
    }
    QCOMPARE(m_hand->command("image /dev/null"), "ok 4096");
    listAgain();
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.8");
}

void TestUpdate::duringTheTransfer()
{
    open();
    MainWindow* window = m_tool->window();
    QStringList reported;
    connect(window, &MainWindow::sig_updateProgress, this, [&](int percent) {
        auto* dialog = window->findChild<QProgressDialog*>();
        QCOMPARE(dialog->value(), percent);
        if (reported.isEmpty() || !reported.constLast().endsWith(dialog->labelText()))
            reported.append(QString::number(percent) + ' ' + dialog->labelText());
        if (percent == 50)
            QTimer::singleShot(100, window, [&, dialog] {
                window->close();
                m_tool->trigger("action_Exit");
                QTest::keyClick(dialog, Qt::Key_Escape);
                dialog->close();
                m_tool->trigger("action_Force_Update");
                QMetaObject::invokeMethod(window, "on_pushButton_BasicUpdateFirmware_clicked");
                QVERIFY(window->isVisible() && dialog->isVisible());
                QVERIFY(m_tool->errorText().contains("update in progress"));
            });
    });
    command("fault late stage=record skip=8 ms=300");
    update("local", sample());
    QCOMPARE(m_dialogs, "sfpu");
    QCOMPARE(reported, (QStringList{"0 Power up the device now", "6 Updating device firmware..."}));
    for (const auto* timer : window->findChild<QProgressDialog*>()->findChildren<QTimer*>())
        QVERIFY(!timer->isActive() || timer->interval() > 1000 * 3600); // is not shown again
}

void TestUpdate::portsRefreshed()
{
    open();
    FileServer server;
    QElapsedTimer sinceAction;
    connect(&server, &FileServer::newConnection, m_tool->window(), [&] {
        sinceAction.start();
        m_tool->click("pushButton_RefreshPorts");
    });
    update("remote");
    QCOMPARE(m_dialogs, "s");
    QVERIFY(sinceAction.elapsed() < 20'000);
    QTRY_COMPARE(m_tool->devices()->count(), 0);
}

void TestUpdate::cancelled()
{
    open();
    FileServer server;
    server.drips = true;
    server.answers = {{"/firmwares/1B01/latest_version.json", Http::answer(list(R"("hand.upd")"))}};
    QTimer watch;
    connect(&watch, &QTimer::timeout, m_tool->window(), [this] {
        const auto* dialog = m_tool->window()->findChild<QProgressDialog*>("downloadDialog");
        if (dialog && dialog->isVisible() && dialog->labelText().contains("of"))
            dialog->findChild<QPushButton*>()->click();
    });
    watch.start(50);
    update("remote");
    QCOMPARE(m_dialogs, "st");
    QCOMPARE(m_tool->devices()->count(), 1);
    QVERIFY(m_tool->enabled("pushButton_BasicBeep"));
    QVERIFY(!m_tool->window()->findChild<QProgressDialog*>("downloadDialog"));
}

VANTO_TEST(TestUpdate)

} // namespace vanto

#include "tst_update.moc"
