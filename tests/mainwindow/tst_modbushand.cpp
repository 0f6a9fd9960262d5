#include "handtest.h"
#include "testmain.h"

#include <QInputDialog>
#include <QTabWidget>

namespace vanto
{

/// The window on a hand that uses Modbus RTU. The bytes of every operation are checked by
/// tst_registers.
class TestModbusHand : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void showsValuesOfHand();
    void bothProtocolsOnOneNode();
    void gains();
    void setId();

private:
    QString held(const QString& what) const { return m_hand->command("get 2 " + what).mid(3); }
};

void TestModbusHand::showsValuesOfHand()
{
    open({"--node", "2:modbus", "--firmware", "1.4.300"});
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.300");
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
    for (const char* protocol : {"serialctrl", "modbus"}) { // the port is released in between
        m_tool->devices()->setCurrentIndex(QString(protocol) == "modbus" ? 0 : 1);
        clearRecords();
        m_tool->click("pushButton_BasicBeep");
        QCOMPARE(shown(), QStringList{"Beep succeeded"});
        QCOMPARE(m_hand->requests().constFirst().protocol, protocol);
    }
}

/// The hand stores hundredths without a sign.
void TestModbusHand::gains()
{
    open({"--node", "2:modbus"});
    for (const auto& [gain, text] :
         {std::pair{"P", "1.239"}, {"I", "0.05"}, {"D", "x"}, {"G", "-10"}})
        m_tool->setField(QString("lineEdit_Setting") + gain + '2', text);
    clearRecords();
    m_tool->click("pushButton_SettingWritePID2");
    QCOMPARE(writes(), (QStringList{"1047: 007b", "1057: 0005", "1067: 0000", "1077: fc18"}));
    QCOMPARE(shown(), QStringList());
    QCOMPARE(m_tool->field("lineEdit_SettingP2"), "1.23");
    QCOMPARE(m_tool->field("lineEdit_SettingG2"), "645.36");
}

void TestModbusHand::setId()
{
    open({"--node", "2:modbus"});
    clearRecords();
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
