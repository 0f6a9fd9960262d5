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

#include <functional>

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

using Act = std::function<void(const TestWindow&)>;

struct Conditions {
    Belongs belongs = Belongs::Writes;
    int command = 0; ///< of SerialCtrl, for Belongs::Reads and Play
    int firstRegister = 0;
    int lastRegister = 0;
    const char* input = ""; ///< of vantoctl
    const char* setUp = ""; ///< command for the hand
    int status = 0;         ///< of vantoctl
    const char* file = "";  ///< values in a parameter file
    bool overModbus = true;
};

struct Row {
    const char* name;
    Act act;           ///< in the window
    const char* words; ///< of vantoctl
    Conditions conditions = Conditions();
};

Conditions only(Belongs belongs)
{
    return {.belongs = belongs};
}

Conditions at(int command, int firstRegister, int lastRegister, Belongs belongs = Belongs::Reads)
{
    return {.belongs = belongs,
            .command = command,
            .firstRegister = firstRegister,
            .lastRegister = lastRegister};
}

Conditions typing(const char* input, Belongs belongs = Belongs::Writes)
{
    return {.belongs = belongs, .input = input};
}

Conditions failing(const char* setUp, int status, const char* input = "")
{
    return {.input = input, .setUp = setUp, .status = status};
}

Conditions withFile(const char* file, Belongs belongs = Belongs::Writes)
{
    return {.belongs = belongs, .file = file};
}

Conditions overSerialCtrl(const char* file, Belongs belongs = Belongs::Writes)
{
    return {.belongs = belongs, .file = file, .overModbus = false};
}

/// Typed at the prompts of the calibration.
constexpr const char* CalibrationInput = "\n1A2B\n\n\n\n\n\n\n";
constexpr const char* Refusing = "fault refuse error=0x21 count=0";

Act press(int page, const char* button, const char* field = "", const char* value = "")
{
    return [=](const TestWindow& tool) {
        tool.showPage(page);
        if (*field)
            tool.setField(field, value);
        tool.click(button);
    };
}

Act choose(const char* box, int index, const char* button)
{
    return [=](const TestWindow& tool) {
        tool.find<QComboBox>(box)->setCurrentIndex(index);
        tool.click(button);
    };
}

/// Shows positions (0) or angles (1) on the Run page.
void showMode(const TestWindow& tool, int mode)
{
    tool.showPage(RunTab);
    tool.find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(mode);
}

void showBothModes(const TestWindow& tool)
{
    showMode(tool, 1);
    showMode(tool, 0);
}

Act setPose(int mode, const char* value)
{
    return [=](const TestWindow& tool) {
        showMode(tool, mode);
        press(RunTab, "pushButton_RunSetPos1", "lineEdit_RunPos1", value)(tool);
    };
}

Act moveSlider(int mode, int value)
{
    return [=](const TestWindow& tool) {
        showMode(tool, mode);
        tool.setField("lineEdit_RunSpeed1", "44");
        auto* slider = tool.find<QSlider>("verticalSlider_RunPos1");
        slider->setSliderDown(true);
        slider->setSliderPosition(value);
        slider->setSliderDown(false);
    };
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

Act accept(const char* button, const char* source = "local", const char* ticked = "")
{
    return [=](const TestWindow& tool) { acceptDialogs(tool, button, source, ticked); };
}

const Act reloadBasic = press(BasicTab, "pushButton_BasicReloadBasic");

void scan(const TestWindow& tool)
{
    acceptDialogs(tool, "action_Scan_Range");
    tool.click("pushButton_ScanDevices");
}

void writeGains(const TestWindow& tool)
{
    tool.showPage(SettingTab);
    for (const char* gain : {"P", "I", "D", "G"})
        tool.setField(QString("lineEdit_Setting%1%2").arg(gain).arg(1), "1.25");
    tool.click("pushButton_SettingWritePID1");
}

void showCurrents(const TestWindow& tool)
{
    tool.showPage(RunTab);
    QTRY_VERIFY(!tool.field("lineEdit_RunCurrent5").isEmpty());
}

void halt(const TestWindow& tool)
{
    tool.click("pushButton_Halt");
    QTRY_COMPARE(tool.find<QPushButton>("pushButton_Halt")->text(), "Continue");
}

void haltAndContinue(const TestWindow& tool)
{
    halt(tool);
    QTest::qWait(750); // an earlier click does not continue
    tool.click("pushButton_Halt");
    QTRY_COMPARE(tool.find<QPushButton>("pushButton_Halt")->text(), "Halt");
}

void play(const TestWindow& tool)
{
    tool.showPage(SequenceTab);
    acceptDialogs(tool, "pushButton_SeqLoad");
    tool.click("pushButton_SeqRun");
    QTRY_VERIFY_WITH_TIMEOUT(!tool.enabled("pushButton_SeqStop"), 30'000);
}

void monitor(const TestWindow& tool)
{
    tool.trigger("action_Monitor");
    for (const char* field : {"Angle", "Force"})
        tool.find<QCheckBox>(QString("checkBox_Monitor") + field)->click();
    const auto* force = tool.find<QTableWidget>("tableWidget_Monitor")->item(4, 3);
    QTRY_VERIFY(!force->text().isEmpty());
}

const Row rows[] = {
    {"beep", press(BasicTab, "pushButton_BasicBeep"), "beep"},
    {"beep refused", press(BasicTab, "pushButton_BasicBeep"), "beep", failing(Refusing, 1)},
    {"reset", press(BasicTab, "pushButton_BasicReset"), "reset"},
    {"init", choose("comboBox_BasicSelfTestLevel", 0, "pushButton_BasicStartInit"), "init"},
    {"self-test level",
     choose("comboBox_BasicSelfTestLevel", 2, "pushButton_BasicSetSelfTestLevel"),
     "set selfTestLevel 2"},
    {"beep switch", choose("comboBox_BasicBeepSwitch", 1, "pushButton_BasicSetBeepSwitch"),
     "set beepSwitch 1"},
    {"set id", accept("pushButton_BasicSetID"), "set-id 9"},
    {"calibrate", accept("pushButton_BasicRecalibrate"), "calibrate", typing(CalibrationInput)},
    {"calibrate refused", accept("pushButton_BasicRecalibrate"), "calibrate",
     failing(Refusing, 1, CalibrationInput)},
    {"scan", scan, "scan --nodes 2", only(Belongs::Versions)},
    {"firmware version", reloadBasic, "get firmware", at(0x01, 1001, 1002)},
    {"protocol version", reloadBasic, "get protocolVersion", overSerialCtrl("", Belongs::Reads)},
    {"hardware", reloadBasic, "get hardware", at(0x02, 1003, 1004)},
    {"calibration", reloadBasic, "get calibration", at(0x03, 1020, 1042)},
    {"read self-test level", reloadBasic, "get selfTestLevel", at(0x20, 1008, 1008)},
    {"read beep switch", reloadBasic, "get beepSwitch", at(0x21, 1009, 1009)},
    {"update", accept("pushButton_BasicUpdateFirmware"), "update " SAMPLE,
     typing("\n", Belongs::BootLoader)},
    {"update from server", accept("pushButton_BasicUpdateFirmware", "remote"),
     "update --yes --server %1", only(Belongs::BootLoader)},
    {"gains", writeGains, "set gains index 1.25 1.25 1.25 1.25"},
    {"read gains", press(SettingTab, "pushButton_SettingReadPID3"), "get P third",
     at(0x04, 1045, 1084)},
    {"current limit",
     press(SettingTab, "pushButton_SettingWriteCurrentLimit4", "lineEdit_SettingCurrentLimit4",
           "7"),
     "set currentLimit little 7"},
    {"force limit",
     press(SettingTab, "pushButton_SettingWriteForceLimit2", "lineEdit_SettingForceLimit2", "77"),
     "set forceLimit 2 77"},
    {"read current limit", press(SettingTab, "pushButton_SettingReadCurrentLimit0"),
     "get currentLimit 0", at(0x05, 1095, 1104)},
    {"read force limit", press(SettingTab, "pushButton_SettingReadForceLimit0"), "get forceLimit 0",
     at(0x07, 1115, 1124)},
    {"position", setPose(0, "12345"), "move 1 12345"},
    {"angle", setPose(1, "12.5"), "move 1 12.5 --angle"},
    {"slider", moveSlider(0, 3000), "move 1 3000 --speed 44"},
    {"slider of an angle", moveSlider(1, 12000), "move 1 120 --speed 44 --angle"},
    {"positions", showBothModes, "get position", at(0x0F, 1135, 1150)},
    {"angles", showBothModes, "get target-angle", at(0x10, 1155, 1170)},
    {"currents", showCurrents, "get current", at(0x06, 1105, 1110)},
    {"halt", halt, "halt"},
    {"continue", haltAndContinue, "batch", typing("2 halt\n2 continue\n")},
    {"play", play, "play " EXAMPLES "/grip.json", at(0x06, 1105, 1110, Belongs::Play)},
    {"play with too much current", play, "play " EXAMPLES "/grip.json",
     failing("set 2 current 2 80", 6)},
    {"monitor", monitor, "monitor --for 0.2 --fields current,position,angle,force",
     only(Belongs::Samples)},
    {"backup", accept("action_Save_Parameters"), "backup %2/saved.json", only(Belongs::AllReads)},
    {"report", accept("action_Hand_Information"), "report %2/report.txt", only(Belongs::AllReads)},
    {"compare", accept("action_Restore_Parameters"), "restore --dry-run %2/hand.json",
     withFile(R"("selfTestLevel":1)", Belongs::AllReads)},
    {"restore", accept("action_Restore_Parameters"), "restore %2/hand.json",
     withFile(R"("beepSwitch":0,"fingers":{"third":{"forceLimit":66},"thumb":{"P":7.5}})")},
    {"restore position limits", accept("action_Restore_Parameters", "", "checkBox_PositionLimits"),
     "restore --yes --only positionLimits %2/hand.json",
     overSerialCtrl(R"("fingers":{"little":{"positionLimits":[444,3333]}})")},
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
            if (!modbus ||
                (row.conditions.overModbus && row.conditions.belongs != Belongs::BootLoader))
                QTest::addRow("%s %s", row.name, modbus ? "modbus" : "serialctrl")
                    << &row << modbus;
}

QStringList TestParity::framesOf(const Row& row) const
{
    const Belongs belongs = row.conditions.belongs;
    QStringList frames;
    QStringList reads;
    for (const TracedFrame& frame : m_hand->requests()) {
        const auto byte = [&](int index) { return int{std::uint8_t(frame.bytes.at(index))}; };
        if (belongs == Belongs::BootLoader) {
            if (frame.protocol == "boot")
                frames.append(frame.bytes.toHex());
            continue;
        }
        if (frame.protocol == "boot")
            continue;
        const bool modbus = frame.protocol == "modbus";
        const int address = modbus ? 256 * byte(2) + byte(3) : 0;
        const bool isWrite = modbus ? byte(1) != 3 : byte(4) >= 0x40;
        const bool isRead = modbus ? address >= row.conditions.firstRegister &&
                                         address <= row.conditions.lastRegister
                                   : byte(4) == row.conditions.command;
        const bool isVersion = modbus ? address < 1003 : byte(4) < 0x02;
        // The window knows from opening the hand whether it measures forces.
        const bool isForce = modbus ? address >= 1200 : byte(4) == 0x08;
        if (belongs == Belongs::Play && isRead)
            reads.append(frame.bytes.toHex());
        if (belongs == Belongs::Writes     ? isWrite
            : belongs == Belongs::Play     ? isWrite
            : belongs == Belongs::Reads    ? isRead
            : belongs == Belongs::Versions ? isVersion
            : belongs == Belongs::AllReads ? !isWrite && !isForce
                                           : !isWrite)
            frames.append(frame.bytes.toHex());
    }
    reads.removeDuplicates();
    frames += reads;
    if (belongs > Belongs::AllReads)
        frames.removeDuplicates();
    if (belongs == Belongs::Samples)
        frames.sort();
    return frames;
}

void TestParity::prepare(const Row& row) const
{
    command("set 2 reboot-time 0");
    command("set 2 raw 5 1000");
    if (*row.conditions.setUp)
        command(row.conditions.setUp);
}

void TestParity::sameFrames()
{
    QFETCH(const Row*, row);
    QFETCH(bool, modbus);
    CalibrationProcedure::stageMs = 50;
    QStringList options{"--node", modbus ? "2:modbus" : "2", "--speed", "20"};
    QString words = row->words + QString(" --protocol ") + (modbus ? "modbus" : "serialctrl");
    if (row->conditions.belongs == Belongs::Versions) { // over both protocols
        options += {"--node", modbus ? "2" : "2:modbus"};
        words = row->words;
    }
    QFile file(folder() + "/hand.json");
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(QByteArray(R"({"kind":"hand parameters","version":1,)") + row->conditions.file +
               '}');
    file.close();
    QFile::remove(folder() + "/saved.json"); // or the window would ask
    QFile image(SAMPLE);
    QVERIFY(image.open(QFile::ReadOnly));
    FileServer server;
    server.answers = {
        {"/firmwares/1B01/latest_version.json",
         Http::answer(R"({"hand":{"version":"1.4.8","desc":"none","file":"hand.upd"}})")},
        {"/firmwares/1B01/hand.upd", Http::answer(image.readAll())}};
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
    cli.start(words.replace("%1", server.url()).replace("%2", folder()), row->conditions.input);
    cli.process().closeWriteChannel();
    QTRY_COMPARE_WITH_TIMEOUT(cli.process().state(), QProcess::NotRunning, 60'000);
    const auto result = cli.finish();
    QVERIFY2(result.status == row->conditions.status, qPrintable(result.errors));
    QStringList sent = framesOf(*row);
    if (row->conditions.status == 6) { // the command line also halts
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
