#include "handtest.h"
#include "testmain.h"

#include <QInputDialog>
#include <QSlider>
#include <QTabWidget>

namespace vanto
{

/// The window on a hand that speaks Modbus RTU; its frames begin with node and function.
class TestModbusHand : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void pagesShowTheHand();
    void bothProtocolsOnOneNode();
    void buttons_data();
    void buttons();
    void sliderAndCurrents();
    void setId();

private:
    QString held(const QString& what) const { return m_hand->command("get 2 " + what).mid(3); }
};

void TestModbusHand::pagesShowTheHand()
{
    open({"--node", "2:modbus", "--firmware", "1.4.300", "--hardware", "1b0c", "--boot", "3.12"});
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.300");
    QCOMPARE(m_tool->field("lineEdit_BasicHardwareTypeVersion"), "1B0C");
    QCOMPARE(m_tool->field("lineEdit_BasicBootLoaderVersion"), "V3.12");
    QCOMPARE(m_tool->field("lineEdit_BasicThumbRootPos1"), "1900");
    QCOMPARE(m_tool->field("lineEdit_SettingCurrentLimit3"), held("current-limit 3"));
    QCOMPARE(m_tool->field("lineEdit_SettingForceLimit2"), held("force-limit 2"));
    QCOMPARE(m_tool->field("lineEdit_RunPos4"), held("target 4"));
    QVERIFY(m_tool->find<QTabWidget>("tabWidget")->isTabVisible(3));
    QCOMPARE(shown().last(3),
             (QStringList{"Basic info loaded", "Setting loaded", "Running info loaded"}));
}

void TestModbusHand::bothProtocolsOnOneNode()
{
    open({"--node", "2:modbus", "--node", "2:serialctrl"}, 2);
    for (const char* protocol : {"serialctrl", "modbus"}) { // the port is free in between
        m_tool->devices()->setCurrentIndex(QString(protocol) == "modbus" ? 0 : 1);
        forget();
        m_tool->click("pushButton_BasicBeep");
        QCOMPARE(shown(), QStringList{"Beep succeeded"});
        QCOMPARE(m_hand->requests().constFirst().protocol, protocol);
    }
}

void TestModbusHand::buttons_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("written");
    const auto row = [](const char* button, const QStringList& written) {
        QTest::newRow(button) << QString("pushButton_%1").arg(button) << written;
    };
    row("BasicBeep", {"1010: 01f4"});
    row("BasicSetSelfTestLevel", {"1008: 0000"});
    row("BasicSetBeepSwitch", {"1009: 0001"});
    row("BasicStartInit", {"1013: 0001"});
    row("BasicReset", {"1014: 0000"});
    row("SettingWritePID2", {"1047: 007b", "1057: 0005", "1067: 0000", "1077: fc18"});
    row("SettingWriteCurrentLimit2", {"1097: 02ee"});
    row("SettingWriteForceLimit2", {"1117: 012c"});
    row("RunSetPos2", {"1127: 0101", "1137: 1170"});
}

void TestModbusHand::buttons()
{
    QFETCH(QString, button);
    open({"--node", "2:modbus"});
    for (const auto& [field, text] : {std::pair{"SettingP2", "1.239"},
                                      {"SettingI2", "0.05"},
                                      {"SettingD2", "x"},
                                      {"SettingG2", "-10"},
                                      {"SettingCurrentLimit2", "750"},
                                      {"SettingForceLimit2", "300"},
                                      {"RunPos2", "70000"},
                                      {"RunSpeed2", "257"}})
        m_tool->setField(QString("lineEdit_") + field, text);
    m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->setCurrentIndex(0);
    m_tool->find<QComboBox>("comboBox_BasicBeepSwitch")->setCurrentIndex(1);
    forget();
    m_tool->click(button);
    QTEST(writes(), "written");
    QVERIFY(shown().filter("returned").isEmpty() && shown().filter("Timeout").isEmpty());
    if (button.contains("PID")) // what the hand stores are hundredths without a sign
        QCOMPARE(m_tool->field("lineEdit_SettingP2") + ' ' + m_tool->field("lineEdit_SettingG2"),
                 "1.23 645.36");
}

void TestModbusHand::sliderAndCurrents()
{
    open({"--node", "2:modbus"});
    m_tool->showPage(2);
    m_tool->find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(1);
    auto* slider = m_tool->find<QSlider>("verticalSlider_RunPos0");
    QTRY_COMPARE(slider->minimum(), -1269);
    QTRY_VERIFY(slider->isEnabled());
    forget();
    slider->setSliderDown(true);
    slider->setSliderPosition(-1000);
    slider->setSliderDown(false);
    QTRY_COMPARE(writes(), (QStringList{"1125: ffff", "1155: fc18"}));
    QTRY_COMPARE(m_tool->field("lineEdit_RunPos0"), "-10.00");
    tell("set 2 current 5 77");
    QTRY_COMPARE(m_tool->field("lineEdit_RunCurrent5"), "77");
}

void TestModbusHand::setId()
{
    open({"--node", "2:modbus"});
    forget();
    DialogAnswer<QInputDialog> answer([](QInputDialog* dialog) {
        dialog->setIntValue(256);
        dialog->accept();
    });
    m_tool->click("pushButton_BasicSetID");
    QCOMPARE(writes(), QStringList{"1005: 0000"});
    QCOMPARE(shown(), QStringList{"node id changed from '0x02' to '0x00', please wait for device "
                                  "rebooting then rescan devices"});
    QCOMPARE(m_tool->devices()->count(), 0);
}

VANTO_TEST(TestModbusHand)

} // namespace vanto

#include "tst_modbushand.moc"
