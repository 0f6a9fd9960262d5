#include "handtest.h"
#include "testmain.h"

#include <QInputDialog>

namespace vanto
{

/// The Basic tab in the real window.
class TestBasic : public HandTest
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { close(); }
    void showsValuesOfHand();
    void failedReads_data();
    void failedReads();
    void invalidValues();
    void commands_data();
    void commands();
    void invalidSelections();
    void setId_data();
    void setId();
    void initDependsOnSelfTestLevel();
    void reloadWithoutAdapter();
};

void TestBasic::init()
{
    const QString test = QTest::currentTestFunction();
    if (test == "failedReads" || test == "handVanishesDuringReload")
        expectTimeouts();
    open({"--node", "2", "--firmware", "1.4.7", "--hardware", "1b0c", "--boot", "3.12",
          "--protocol-version", "3.1"});
    clearRecords();
}

/// The tour compares the calibration data with those of the hand.
void TestBasic::showsValuesOfHand()
{
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.7");
    QCOMPARE(m_tool->field("lineEdit_BasicProtocolVersion"), "V3.1");
    QCOMPARE(m_tool->field("lineEdit_BasicHardwareTypeVersion"), "1B0C");
    QCOMPARE(m_tool->field("lineEdit_BasicBootLoaderVersion"), "V3.12");
    command("set 2 selftest 1");
    command("set 2 beepswitch 0");
    m_tool->click("pushButton_BasicReloadBasic");
    QCOMPARE(m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->currentText(), "Stretch only");
    QCOMPARE(m_tool->find<QComboBox>("comboBox_BasicBeepSwitch")->currentText(), "Basic Only");
    QCOMPARE(m_tool->statusText(), "Basic info loaded");
}

void TestBasic::failedReads_data()
{
    addTextRows(
        {"fault", "error", "emptyField"},
        {{"refuse command=0x01 error=0x21",
          "getFirmwareVersion(0x02, ...) returned 0xff (sub err 21)", "FirmwareVersion"},
         {"drop command=0x00", "Timeout for SerialCtrl node '0x02'...", "ProtocolVersion"},
         {"garble command=0x02", "getHardwareVersion(0x02, ...) returned 0x01 (sub err 00)",
          "BootLoaderVersion"},
         {"over-long command=0x20", "getSelfTestLevel(0x02, ...) returned 0x04 (sub err 00)", ""},
         {"wrong-node command=0x21", "getBeepSwitch(0x02, ...) returned 0x05 (sub err 00)", ""},
         {"short command=0x03", "getCaliData(0x02, ...) returned 0x08 (sub err 00)",
          "CaliStart0"}});
}

void TestBasic::failedReads()
{
    QFETCH(QString, fault);
    QFETCH(QString, error);
    QFETCH(QString, emptyField);
    command("fault " + fault);
    m_tool->click("pushButton_BasicReloadBasic");

    QCOMPARE(shown(), (QStringList{error, "Basic info loaded"}));
    QCOMPARE(m_hand->requests().size(), 6); // the other reads are still made
    if (!emptyField.isEmpty())
        QCOMPARE(m_tool->field("lineEdit_Basic" + emptyField), QString());
    QCOMPARE(m_tool->enabled("pushButton_BasicBeep"), emptyField != "ProtocolVersion");
    QCOMPARE(m_tool->enabled("pushButton_BasicUpdateFirmware"), emptyField != "BootLoaderVersion");
    QVERIFY(m_tool->enabled("pushButton_BasicReloadBasic"));
    m_tool->click("pushButton_BasicReloadBasic");
    QVERIFY(m_tool->enabled("pushButton_BasicBeep"));
}

void TestBasic::invalidValues()
{
    command("set 2 selftest 3");
    command("set 2 beepswitch 2");
    m_tool->click("pushButton_BasicReloadBasic");
    QCOMPARE(shown(),
             (QStringList{"getSelfTestLevel(0x02, ...) got invalid value '03'",
                          "getBeepSwitch(0x02, ...) got invalid value '02'", "Basic info loaded"}));
    QCOMPARE(m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->currentIndex(), 2);
    QVERIFY(!m_tool->field("lineEdit_BasicThumbRootPos2").isEmpty());
}

void TestBasic::commands_data()
{
    addTextRows({"button", "sent", "success"},
                {{"Beep", "62 f401", "Beep succeeded"},
                 {"SetSelfTestLevel", "60 00", "Set self-test level succeeded"},
                 {"SetBeepSwitch", "61 01", "Set beep switch succeeded"},
                 {"StartInit", "64 ", "Start init succeeded"},
                 {"Reset", "40 00", "Reset succeeded"}});
}

void TestBasic::commands()
{
    QFETCH(QString, button);
    button.prepend("pushButton_Basic");
    m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->setCurrentIndex(0);
    m_tool->find<QComboBox>("comboBox_BasicBeepSwitch")->setCurrentIndex(1);

    m_tool->click(button);
    QTEST(frames().join('|'), "sent");
    QTEST(m_tool->statusText(), "success");
}

void TestBasic::invalidSelections()
{
    m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->setCurrentIndex(-1);
    m_tool->find<QComboBox>("comboBox_BasicBeepSwitch")->setCurrentIndex(-1);
    QStringList boxes;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        QCOMPARE(box->windowTitle(), "VantoSetting");
        QCOMPARE(box->icon(), QMessageBox::Information);
        boxes.append(box->text());
        box->accept();
    });
    m_tool->click("pushButton_BasicSetSelfTestLevel");
    m_tool->click("pushButton_BasicSetBeepSwitch");
    QCOMPARE(boxes,
             (QStringList{"Invalid self-test level '-1'", "Invalid beep switch level '%d'"}));
    QCOMPARE(m_hand->requests().size(), 0);
}

void TestBasic::setId_data()
{
    const QString changed = "node id changed from '0x02' to '0x%1', need to rescan devices";
    addTextRows({"typed", "button", "sent", "text"}, {{"16", "OK", "42 10", changed.arg("10")},
                                                      {"256", "OK", "42 00", changed.arg("00")},
                                                      {"2", "OK", "", ""},
                                                      {"9", "Cancel", "", ""}});
}

void TestBasic::setId()
{
    QFETCH(QString, typed);
    QFETCH(QString, button);
    QFETCH(QString, text);
    DialogAnswer<QInputDialog> answer([&](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), "VantoSetting");
        QCOMPARE(dialog->labelText(), "Please input new node id:");
        QCOMPARE(dialog->intValue(), 2);
        QCOMPARE(dialog->intMinimum(), 2);
        QCOMPARE(dialog->intMaximum(), 256);
        dialog->setIntValue(typed.toInt());
        button == "OK" ? dialog->accept() : dialog->reject();
    });
    m_tool->click("pushButton_BasicSetID");
    QCOMPARE(answer.count(), 1);
    QTEST(frames().join('|'), "sent");
    const bool changed = !text.isEmpty();
    QCOMPARE(shown(), changed ? QStringList{text} : QStringList());
    QCOMPARE(m_tool->devices()->count(), changed ? 0 : 1);
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion").isEmpty(), changed);

    // Without an entry nothing is sent.
    m_hand->clearTrace();
    m_tool->find<QPushButton>("pushButton_BasicBeep")->setEnabled(true);
    m_tool->click("pushButton_BasicBeep");
    QCOMPARE(m_hand->requests().size(), changed ? 0 : 1);
}

void TestBasic::initDependsOnSelfTestLevel()
{
    auto* level = m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel");
    for (const int index : {0, 1, 2, 0, -1}) {
        level->setCurrentIndex(index);
        QCOMPARE(m_tool->enabled("pushButton_BasicStartInit"), index == 0);
    }
}

void TestBasic::reloadWithoutAdapter()
{
    m_tool->window()->closeDevice();
    QString text;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        text = box->text();
        QCOMPARE(box->icon(), QMessageBox::Critical);
        box->accept();
    });
    m_tool->click("pushButton_BasicReloadBasic");
    QCOMPARE(text, "Unknown protocol");
    QVERIFY(m_tool->enabled("pushButton_BasicReloadBasic"));
    QVERIFY(!m_tool->enabled("pushButton_BasicBeep"));
    m_tool->window()->closeDeviceIfOpen();
}

VANTO_TEST(TestBasic)

} // namespace vanto

#include "tst_basic.moc"
