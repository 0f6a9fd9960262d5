#include "calibrationprocedure.h"
#include "cliprocess.h"
#include "fileserver.h"
#include "handtest.h"
#include "parametersdialog.h"
#include "taskdialog.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProgressDialog>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTemporaryDir>

namespace vanto
{

namespace
{
/// The frames that belong to an operation; the window also reads what other fields show.
enum class Belongs {
    Writes,
    Play,     ///< writes, and one kind of reads in between
    AllReads, ///< each as often and in the same order
    Reads,    ///< of one kind; their number depends on timers
    Samples,  ///< all kinds of reads; order and number depend on timers
    Versions, ///< those of a scan, which the window reads once more when it opens a hand
    BootLoader
};

struct Row {
    const char* name;
    void (*act)(const TestWindow& tool); ///< in the window
    const char* words;                   ///< of vantoctl
    Belongs belongs = Belongs::Writes;
    int command = 0; ///< of SerialCtrl, for reads
    int firstRegister = 0;
    int lastRegister = 0;
    const char* input = ""; ///< of vantoctl
    const char* setUp = ""; ///< command for the hand
    int status = 0;         ///< of vantoctl
    const char* file = "";  ///< values in a parameter file
    bool overModbus = true;
};

/// Typed at the prompts of the calibration.
constexpr const char* CalibrationInput = "\n1A2B\n\n\n\n\n\n\n";
constexpr const char* Refusing = "fault refuse error=0x21 count=0";

void reloadBasic(const TestWindow& tool)
{
    tool.click("pushButton_BasicReloadBasic");
}

void setPose(const TestWindow& tool, const char* value)
{
    tool.showPage(RunTab);
    tool.setField("lineEdit_RunPos1", value);
    tool.click("pushButton_RunSetPos1");
}

void moveSlider(const TestWindow& tool, int value)
{
    tool.setField("lineEdit_RunSpeed1", "44");
    auto* slider = tool.find<QSlider>("verticalSlider_RunPos1");
    slider->setSliderDown(true);
    slider->setSliderPosition(value);
    slider->setSliderDown(false);
}

void showAngles(const TestWindow& tool)
{
    tool.showPage(RunTab);
    tool.find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(1);
}

/// Of files that the window and vantoctl use.
QString folder()
{
    static const QTemporaryDir directory;
    return directory.path();
}

/// What is chosen in file dialogs.
QString fileFor(const QString& title)
{
    return title == "Open update file"       ? SAMPLE
           : title.contains("arameter file") ? folder() + "/hand.json"
           : title.contains("parameters")    ? folder() + "/saved.json"
                                             : EXAMPLES "/grip.json";
}

/// Restores what is ticked, and the box `ticked`.
void restoreAndClose(QDialog* dialog, const char* ticked)
{
    const DialogAnswer<QMessageBox> consent(
        [](const QMessageBox* box) { box->button(QMessageBox::Yes)->click(); });
    if (*ticked)
        dialog->findChild<QCheckBox*>(ticked)->click();
    auto* restore = dialog->findChild<QPushButton*>("pushButton_Restore");
    if (restore->isEnabled())
        restore->click();
    auto* close = dialog->findChild<QPushButton*>("pushButton_ParametersClose");
    QTRY_COMPARE_WITH_TIMEOUT(close->text(), "Close", 60'000);
    close->click();
}

/// Clicks a button or triggers an action, and accepts all dialogs.
void acceptDialogs(const TestWindow& tool, const char* button, const char* source = "local",
                   const char* ticked = "")
{
    DialogAnswer<QDialog> answer([=](QDialog* dialog) {
        if (qobject_cast<QProgressDialog*>(dialog) || qobject_cast<TaskDialog*>(dialog))
            return;
        if (qobject_cast<ParametersDialog*>(dialog))
            return restoreAndClose(dialog, ticked);
        if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
            if (input->inputMode() == QInputDialog::IntInput)
                input->setIntValue(9);
            else
                input->setTextValue(input->textEchoMode() == QLineEdit::Password ? "1A2B"
                                    : input->labelText().contains("source")      ? source
                                                                            : input->textValue());
        }
        for (auto* box : dialog->findChildren<QSpinBox*>())
            if (box->objectName().endsWith("Node"))
                box->setValue(2);
        if (qobject_cast<QFileDialog*>(dialog))
            return chooseFile(*dialog, fileFor(dialog->windowTitle()));
        if (const auto* box = qobject_cast<QMessageBox*>(dialog))
            box->button(QMessageBox::Ok)->click();
        else
            dialog->accept();
    });
    if (QByteArray(button).startsWith("action_"))
        tool.trigger(button);
    else
        tool.click(button);
    if (QString(button) == "pushButton_BasicUpdateFirmware")
        QTRY_VERIFY(!Conversation::isActive());
}

void playSequence(const TestWindow& tool)
{
    tool.showPage(SequenceTab);
    acceptDialogs(tool, "pushButton_SeqLoad");
    tool.click("pushButton_SeqRun");
    QTRY_VERIFY_WITH_TIMEOUT(!tool.enabled("pushButton_SeqStop"), 30'000);
}

void restoreParameters(const TestWindow& tool)
{
    acceptDialogs(tool, "action_Restore_Parameters");
}

const Row rows[] = {
    {"beep", [](const TestWindow& tool) { tool.click("pushButton_BasicBeep"); }, "beep"},
    {"reset", [](const TestWindow& tool) { tool.click("pushButton_BasicReset"); }, "reset"},
    {"init",
     [](const TestWindow& tool) {
         tool.find<QComboBox>("comboBox_BasicSelfTestLevel")->setCurrentIndex(0);
         tool.click("pushButton_BasicStartInit");
     },
     "init"},
    {"self-test level",
     [](const TestWindow& tool) {
         tool.find<QComboBox>("comboBox_BasicSelfTestLevel")->setCurrentIndex(2);
         tool.click("pushButton_BasicSetSelfTestLevel");
     },
     "set selfTestLevel 2"},
    {"beep switch",
     [](const TestWindow& tool) {
         tool.find<QComboBox>("comboBox_BasicBeepSwitch")->setCurrentIndex(1);
         tool.click("pushButton_BasicSetBeepSwitch");
     },
     "set beepSwitch 1"},
    {"set id", [](const TestWindow& tool) { acceptDialogs(tool, "pushButton_BasicSetID"); },
     "set-id 9"},
    {"calibrate",
     [](const TestWindow& tool) { acceptDialogs(tool, "pushButton_BasicRecalibrate"); },
     "calibrate", Belongs::Writes, 0, 0, 0, CalibrationInput},
    {"calibrate refused",
     [](const TestWindow& tool) { acceptDialogs(tool, "pushButton_BasicRecalibrate"); },
     "calibrate", Belongs::Writes, 0, 0, 0, CalibrationInput, Refusing, 1},
    {"beep refused", [](const TestWindow& tool) { tool.click("pushButton_BasicBeep"); }, "beep",
     Belongs::Writes, 0, 0, 0, "", Refusing, 1},
    {"read firmware version", reloadBasic, "get firmware", Belongs::Reads, 0x01, 1001, 1002},
    {"read protocol version", reloadBasic, "get protocolVersion", Belongs::Reads, 0x00, 0, 0, "",
     "", 0, "", false},
    {"read hardware", reloadBasic, "get hardware", Belongs::Reads, 0x02, 1003, 1004},
    {"read calibration", reloadBasic, "get calibration", Belongs::Reads, 0x03, 1020, 1042},
    {"read beep switch", reloadBasic, "get beepSwitch", Belongs::Reads, 0x21, 1009, 1009},
    {"scan",
     [](const TestWindow& tool) {
         acceptDialogs(tool, "action_Scan_Range");
         tool.click("pushButton_ScanDevices");
     },
     "scan --nodes 2", Belongs::Versions},
    {"read self-test level", reloadBasic, "get selfTestLevel", Belongs::Reads, 0x20, 1008, 1008},
    {"update",
     [](const TestWindow& tool) { acceptDialogs(tool, "pushButton_BasicUpdateFirmware"); },
     "update " SAMPLE, Belongs::BootLoader, 0, 0, 0, "\n"},
    {"update from server",
     [](const TestWindow& tool) {
         acceptDialogs(tool, "pushButton_BasicUpdateFirmware", "remote");
     },
     "update --yes --server %1", Belongs::BootLoader},
    {"gains",
     [](const TestWindow& tool) {
         tool.showPage(SettingTab);
         for (const char* gain : {"P", "I", "D", "G"})
             tool.setField(QString("lineEdit_Setting%1%2").arg(gain).arg(1), "1.25");
         tool.click("pushButton_SettingWritePID1");
     },
     "set gains index 1.25 1.25 1.25 1.25"},
    {"read gains",
     [](const TestWindow& tool) {
         tool.showPage(SettingTab);
         tool.click("pushButton_SettingReadPID3");
     },
     "get P third", Belongs::Reads, 0x04, 1045, 1084},
    {"current limit",
     [](const TestWindow& tool) {
         tool.showPage(SettingTab);
         tool.setField("lineEdit_SettingCurrentLimit4", "321");
         tool.click("pushButton_SettingWriteCurrentLimit4");
     },
     "set currentLimit little 321"},
    {"force limit",
     [](const TestWindow& tool) {
         tool.showPage(SettingTab);
         tool.setField("lineEdit_SettingForceLimit2", "77");
         tool.click("pushButton_SettingWriteForceLimit2");
     },
     "set forceLimit 2 77"},
    {"read current limit",
     [](const TestWindow& tool) {
         tool.showPage(SettingTab);
         tool.click("pushButton_SettingReadCurrentLimit0");
     },
     "get currentLimit 0", Belongs::Reads, 0x05, 1095, 1104},
    {"read force limit",
     [](const TestWindow& tool) {
         tool.showPage(SettingTab);
         tool.click("pushButton_SettingReadForceLimit0");
     },
     "get forceLimit 0", Belongs::Reads, 0x07, 1115, 1124},
    {"position", [](const TestWindow& tool) { setPose(tool, "12345"); }, "move 1 12345"},
    {"angle",
     [](const TestWindow& tool) {
         showAngles(tool);
         setPose(tool, "12.5");
     },
     "move 1 12.5 --angle"},
    {"slider",
     [](const TestWindow& tool) {
         tool.showPage(RunTab);
         moveSlider(tool, 3000);
     },
     "move 1 3000 --speed 44"},
    {"slider of an angle",
     [](const TestWindow& tool) {
         showAngles(tool);
         moveSlider(tool, 12000);
     },
     "move 1 120 --speed 44 --angle"},
    {"read positions",
     [](const TestWindow& tool) {
         showAngles(tool);
         tool.find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(0);
     },
     "get position", Belongs::Reads, 0x0F, 1135, 1150},
    {"read angles", showAngles, "get target-angle", Belongs::Reads, 0x10, 1155, 1170},
    {"halt",
     [](const TestWindow& tool) {
         tool.click("pushButton_Halt");
         QTRY_COMPARE(tool.find<QPushButton>("pushButton_Halt")->text(), "Continue");
     },
     "halt"},
    {"continue",
     [](const TestWindow& tool) {
         tool.click("pushButton_Halt");
         QTRY_COMPARE(tool.find<QPushButton>("pushButton_Halt")->text(), "Continue");
         QTest::qWait(750); // an earlier click does not continue
         tool.click("pushButton_Halt");
         QTRY_COMPARE(tool.find<QPushButton>("pushButton_Halt")->text(), "Halt");
     },
     "batch", Belongs::Writes, 0, 0, 0, "2 halt\n2 continue\n"},
    {"currents",
     [](const TestWindow& tool) {
         tool.showPage(RunTab);
         QTRY_VERIFY(!tool.field("lineEdit_RunCurrent5").isEmpty());
     },
     "get current", Belongs::Reads, 0x06, 1105, 1110},
    {"play", playSequence, "play " EXAMPLES "/grip.json", Belongs::Play, 0x06, 1105, 1110},
    {"play with too much current", playSequence, "play " EXAMPLES "/grip.json", Belongs::Writes, 0,
     0, 0, "", "set 2 current 2 80", 6},
    {"monitor",
     [](const TestWindow& tool) {
         tool.trigger("action_Monitor");
         for (const char* field : {"Angle", "Force"})
             tool.find<QCheckBox>(QString("checkBox_Monitor") + field)->click();
         const auto* force = tool.find<QTableWidget>("tableWidget_Monitor")->item(4, 3);
         QTRY_VERIFY(!force->text().isEmpty());
     },
     "monitor --for 0.2 --fields current,position,angle,force", Belongs::Samples},
    {"backup", [](const TestWindow& tool) { acceptDialogs(tool, "action_Save_Parameters"); },
     "backup %2/saved.json", Belongs::AllReads},
    {"report", [](const TestWindow& tool) { acceptDialogs(tool, "action_Hand_Information"); },
     "report %2/report.txt", Belongs::AllReads},
    {"compare", restoreParameters, "restore --dry-run %2/hand.json", Belongs::AllReads, 0, 0, 0, "",
     "", 0, R"("selfTestLevel":1)"},
    {"restore", restoreParameters, "restore %2/hand.json", Belongs::Writes, 0, 0, 0, "", "", 0,
     R"("beepSwitch":0,"fingers":{"third":{"forceLimit":66},"thumb":{"P":7.5,"currentLimit":77}})"},
    {"restore position limits",
     [](const TestWindow& tool) {
         acceptDialogs(tool, "action_Restore_Parameters", "", "checkBox_PositionLimits");
     },
     "restore --yes --only positionLimits %2/hand.json", Belongs::Writes, 0, 0, 0, "", "", 0,
     R"("fingers":{"little":{"positionLimits":[444,3333]},"index":{"positionLimits":[401,3601]}})",
     false},
};
} // namespace

/// Every operation of the window sends the same frames as its command of vantoctl.
class TestParity : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void sameFrames_data();
    void sameFrames();
    void samePorts();

private:
    QStringList framesOf(const Row& row) const;
    void prepare(const Row& row) const;
};

void TestParity::sameFrames_data()
{
    QTest::addColumn<const Row*>("row");
    QTest::addColumn<bool>("modbus");
    for (const Row& row : rows)
        for (const bool modbus : {false, true})
            if (!modbus || (row.overModbus && row.belongs != Belongs::BootLoader))
                QTest::addRow("%s %s", row.name, modbus ? "modbus" : "serialctrl")
                    << &row << modbus;
}

QStringList TestParity::framesOf(const Row& row) const
{
    QStringList frames;
    QStringList reads;
    for (const TracedFrame& frame : m_hand->requests()) {
        const auto byte = [&](int index) { return int{std::uint8_t(frame.bytes.at(index))}; };
        if (row.belongs == Belongs::BootLoader) {
            if (frame.protocol == "boot")
                frames.append(frame.bytes.toHex());
            continue;
        }
        if (frame.protocol == "boot")
            continue;
        const bool modbus = frame.protocol == "modbus";
        const int address = modbus ? 256 * byte(2) + byte(3) : 0;
        const bool isWrite = modbus ? byte(1) != 3 : byte(4) >= 0x40;
        const bool isRead = modbus ? address >= row.firstRegister && address <= row.lastRegister
                                   : byte(4) == row.command;
        const bool isVersion = modbus ? address < 1003 : byte(4) < 0x02;
        // The window knows from opening the hand whether it measures forces.
        const bool isForce = modbus ? address >= 1200 : byte(4) == 0x08;
        if (row.belongs == Belongs::Play && isRead)
            reads.append(frame.bytes.toHex());
        if (row.belongs == Belongs::Writes     ? isWrite
            : row.belongs == Belongs::Play     ? isWrite
            : row.belongs == Belongs::Reads    ? isRead
            : row.belongs == Belongs::Versions ? isVersion
            : row.belongs == Belongs::AllReads ? !isWrite && !isForce
                                               : !isWrite)
            frames.append(frame.bytes.toHex());
    }
    reads.removeDuplicates();
    frames += reads;
    if (row.belongs > Belongs::AllReads)
        frames.removeDuplicates();
    if (row.belongs == Belongs::Samples)
        frames.sort();
    return frames;
}

void TestParity::prepare(const Row& row) const
{
    command("set 2 reboot-time 0");
    command("set 2 raw 5 1000");
    if (*row.setUp)
        command(row.setUp);
}

void TestParity::sameFrames()
{
    QFETCH(const Row*, row);
    QFETCH(bool, modbus);
    CalibrationProcedure::stageMs = 50;
    QStringList options{"--node", modbus ? "2:modbus" : "2", "--speed", "20"};
    QString words = row->words + QString(" --protocol ") + (modbus ? "modbus" : "serialctrl");
    if (row->belongs == Belongs::Versions) { // over both protocols
        options += {"--node", modbus ? "2" : "2:modbus"};
        words = row->words;
    }
    QFile file(folder() + "/hand.json");
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(QByteArray(R"({"kind":"hand parameters","version":1,)") + row->file + '}');
    file.close();
    QFile::remove(folder() + "/saved.json"); // or the window would ask
    QFile image(SAMPLE);
    QVERIFY(image.open(QFile::ReadOnly));
    FileServer server;
    server.files = {{"/firmwares/1B01/latest_version.json",
                     R"({"hand":{"version":"1.4.8","desc":"none","file":"hand.upd"}})"},
                    {"/firmwares/1B01/hand.upd", image.readAll()}};
    qputenv("VANTO_FIRMWARE_SERVER", server.url().toLatin1());
    open(options);
    prepare(*row);
    clearRecords();
    row->act(*m_tool);
    QTRY_VERIFY(!framesOf(*row).isEmpty());
    QTRY_VERIFY(idle());
    const QStringList expected = framesOf(*row);
    const auto expectedPaths = std::exchange(server.paths, {});
    close();

    m_hand = std::make_unique<HandProcess>();
    QVERIFY(m_hand->start(options));
    prepare(*row);
    CliProcess cli(*m_hand);
    cli.start(words.replace("%1", server.url()).replace("%2", folder()), row->input);
    cli.process().closeWriteChannel();
    QTRY_COMPARE_WITH_TIMEOUT(cli.process().state(), QProcess::NotRunning, 60'000);
    const auto result = cli.finish();
    QVERIFY2(result.status == row->status, qPrintable(result.errors));
    QStringList sent = framesOf(*row);
    if (row->status == 6) { // the command line also halts
        QVERIFY(sent.size() > expected.size());
        sent = sent.first(expected.size());
    }
    QCOMPARE(sent.join('\n'), expected.join('\n'));
    QCOMPARE(server.paths, expectedPaths);
}

void TestParity::samePorts()
{
    open();
    QStringList listed;
    for (int i = 0; i < m_tool->ports()->count(); ++i)
        listed.append(m_tool->ports()->itemData(i).toString());
    CliProcess cli(*m_hand);
    cli.setVariable("VANTO_PORTS", m_hand->portName());
    QStringList names;
    for (const QJsonValue port :
         QJsonDocument::fromJson(cli.run("ports --json").output.toUtf8())["ports"].toArray())
        names.append(port["name"].toString());
    QVERIFY(names.contains(m_hand->portName()));
    QCOMPARE(names, listed);
}

VANTO_TEST(TestParity)

} // namespace vanto

#include "tst_parity.moc"
