#include "calibrationprocedure.h"
#include "cliprocess.h"
#include "handtest.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QProgressDialog>

namespace vanto
{

namespace
{
/// The frames that belong to an operation; the window also reads what other fields show.
enum class Belongs { Writes, Reads, BootLoader };

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

void acceptDialogs(const TestWindow& tool, const char* button)
{
    DialogAnswer<QDialog> answer([](QDialog* dialog) {
        if (qobject_cast<QProgressDialog*>(dialog))
            return;
        if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
            if (input->inputMode() == QInputDialog::IntInput)
                input->setIntValue(9);
            else
                input->setTextValue(input->textEchoMode() == QLineEdit::Password ? "1A2B"
                                                                                 : "local");
        }
        if (auto* files = qobject_cast<QFileDialog*>(dialog))
            files->selectFile(files->windowTitle() == "Open update file" ? SAMPLE
                                                                         : EXAMPLES "/grip.json");
        if (const auto* box = qobject_cast<QMessageBox*>(dialog))
            box->button(QMessageBox::Ok)->click();
        else
            dialog->accept();
    });
    tool.click(button);
    if (QString(button) == "pushButton_BasicUpdateFirmware")
        QTRY_VERIFY(!Conversation::isActive());
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
    {"read hardware", reloadBasic, "get hardware", Belongs::Reads, 0x02, 1003, 1004},
    {"read self-test level", reloadBasic, "get selfTestLevel", Belongs::Reads, 0x20, 1008, 1008},
    {"update",
     [](const TestWindow& tool) { acceptDialogs(tool, "pushButton_BasicUpdateFirmware"); },
     "update " SAMPLE, Belongs::BootLoader, 0, 0, 0, "\n"},
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
         tool.showPage(RunTab);
         tool.find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(1);
         setPose(tool, "12.5");
     },
     "move 1 12.5 --angle"},
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
    {"play",
     [](const TestWindow& tool) {
         tool.showPage(SequenceTab);
         acceptDialogs(tool, "pushButton_SeqLoad");
         tool.click("pushButton_SeqRun");
         QTRY_VERIFY_WITH_TIMEOUT(!tool.enabled("pushButton_SeqStop"), 30'000);
     },
     "play " EXAMPLES "/grip.json"},
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

private:
    QStringList framesOf(const Row& row, bool modbus) const;
};

void TestParity::sameFrames_data()
{
    QTest::addColumn<const Row*>("row");
    QTest::addColumn<bool>("modbus");
    for (const Row& row : rows)
        for (const bool modbus : {false, true})
            if (!modbus || row.belongs != Belongs::BootLoader)
                QTest::addRow("%s %s", row.name, modbus ? "modbus" : "serialctrl")
                    << &row << modbus;
}

QStringList TestParity::framesOf(const Row& row, bool modbus) const
{
    QStringList frames;
    for (const TracedFrame& frame : m_hand->requests()) {
        const auto byte = [&](int index) { return int{std::uint8_t(frame.bytes.at(index))}; };
        if (row.belongs == Belongs::BootLoader) {
            if (frame.protocol == "boot")
                frames.append(frame.bytes.toHex());
            continue;
        }
        if (frame.protocol != (modbus ? "modbus" : "serialctrl"))
            continue;
        const int address = modbus ? 256 * byte(2) + byte(3) : 0;
        const bool isWrite = modbus ? byte(1) != 3 : byte(4) >= 0x40;
        const bool isRead = modbus ? address >= row.firstRegister && address <= row.lastRegister
                                   : byte(4) == row.command;
        if (row.belongs == Belongs::Writes ? isWrite : isRead)
            frames.append(frame.bytes.toHex());
    }
    if (row.belongs == Belongs::Reads)
        frames.removeDuplicates(); // the window also reads by a timer
    return frames;
}

void TestParity::sameFrames()
{
    QFETCH(const Row*, row);
    QFETCH(bool, modbus);
    CalibrationProcedure::stageMs = 50;
    const QStringList options{"--node", modbus ? "2:modbus" : "2", "--speed", "20"};
    const auto prepare = [&] {
        command("set 2 reboot-time 0");
        command("set 2 raw 5 1000");
    };
    open(options);
    prepare();
    if (*row->setUp)
        command(row->setUp);
    clearRecords();
    row->act(*m_tool);
    QTRY_VERIFY(idle());
    const QStringList expected = framesOf(*row, modbus);
    QVERIFY(!expected.isEmpty());
    close();

    m_hand = std::make_unique<HandProcess>();
    QVERIFY(m_hand->start(options));
    prepare();
    if (*row->setUp)
        command(row->setUp);
    CliProcess cli(*m_hand);
    const auto result = cli.run(
        row->words + QString(" --protocol ") + (modbus ? "modbus" : "serialctrl"), row->input);
    QVERIFY2(result.status == row->status, qPrintable(result.errors));
    QCOMPARE(framesOf(*row, modbus).join('\n'), expected.join('\n'));
}

VANTO_TEST(TestParity)

} // namespace vanto

#include "tst_parity.moc"
