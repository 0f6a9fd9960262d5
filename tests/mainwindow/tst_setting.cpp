#include "handtest.h"
#include "testmain.h"

#include <QTabWidget>

namespace vanto
{

/// The Setting tab in the real window.
class TestSetting : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void showsValuesOfHand_data() { addBoolRows("force", "with force sensing", "without"); }
    void showsValuesOfHand();
    void writesAndReadsBack_data();
    void writesAndReadsBack();
    void incompletePid();
    void thumbRootForce();
};

void TestSetting::showsValuesOfHand()
{
    QFETCH(bool, force);
    open(force ? QStringList{"--node", "2"} : QStringList{"--node", "2", "--no-force"});
    QCOMPARE(frames({0x08}), QStringList{"08 0101"});
    QCOMPARE(frames({0x07}).size(), force ? 5 : 0);
    for (int f = 0; f < 6; ++f) {
        const auto held = [&](const QString& what) {
            return m_hand->command(QString("get 2 %1 %2").arg(what).arg(f)).mid(3).toDouble();
        };
        const auto shown = [&](const QString& what) {
            return m_tool->field(QString("lineEdit_Setting%1%2").arg(what).arg(f));
        };
        for (const char* gain : {"p", "i", "d", "g"})
            QCOMPARE(shown(QString(gain).toUpper()),
                     QString::number(held(QString("pid-") + gain), 'f', 2));
        QCOMPARE(shown("CurrentLimit"), QString::number(held("current-limit")));
        QCOMPARE(shown("ForceLimit"), !force   ? QString()
                                      : f == 5 ? QString("NA")
                                               : QString::number(held("force-limit")));
    }
    QCOMPARE(m_tool->find<QLineEdit>("lineEdit_SettingForceLimit0")->isHidden(), !force);
    QCOMPARE(m_tool->find<QWidget>("label_SettingMN")->isHidden(), !force);
    QVERIFY(!m_tool->find<QLineEdit>("lineEdit_SettingP3")->isReadOnly());

    auto* tabs = m_tool->find<QTabWidget>("tabWidget");
    QCOMPARE(tabs->isTabVisible(ForceTab), force);
    tabs->setCurrentIndex(ForceTab);
    m_tool->click("pushButton_RefreshPorts");
    QVERIFY(!tabs->isTabVisible(ForceTab));
    QCOMPARE(tabs->currentIndex(), 0);
}

void TestSetting::writesAndReadsBack_data()
{
    addTextRows({"what", "typed", "sent", "shown"},
                {{"CurrentLimit", "750", "46 02ee02|05 02", "750"},
                 {"CurrentLimit", "abc", "46 020000|05 02", "0"},
                 {"CurrentLimit", "", "46 020000|05 02", "0"},
                 {"CurrentLimit", "-1", "46 02ffff|05 02", "65535"},
                 {"CurrentLimit", "70000", "46 027011|05 02", "4464"},
                 {"CurrentLimit", "99999999999", "46 020000|05 02", "0"},
                 {"ForceLimit", "300", "47 022c01|07 02", "300"},
                 {"P", "1.239", "45 028d979e3f0000004000000040000000c1|04 02", "1.24"},
                 {"P", "nan", "45 02000000000000004000000040000000c1|04 02", "0.00"},
                 {"P", "inf", "45 02000000000000004000000040000000c1|04 02", "0.00"},
                 {"P", "1e99", "45 02000000000000004000000040000000c1|04 02", "0.00"}});
}

void TestSetting::writesAndReadsBack()
{
    QFETCH(QString, what);
    QFETCH(QString, typed);
    open();
    clearRecords();
    for (const char* gain : {"I", "D"})
        m_tool->setField(QString("lineEdit_Setting") + gain + '2', "2.00");
    m_tool->setField("lineEdit_SettingG2", "-8");
    const QString field = "lineEdit_Setting" + what + '2';
    m_tool->setField(field, typed);
    m_tool->click(
        qPrintable("pushButton_SettingWrite" + (what.size() == 1 ? QString("PID") : what) + '2'));
    QTEST(frames().join('|'), "sent");
    QTEST(m_tool->field(field), "shown");
    QCOMPARE(shown(), QStringList());
}

void TestSetting::incompletePid()
{
    open();
    clearRecords();
    for (const char* field : {"lineEdit_SettingI4", "lineEdit_SettingG4"})
        m_tool->find<QLineEdit>(field)->clear();
    m_tool->setField("lineEdit_SettingP4", "1");
    m_tool->setField("lineEdit_SettingD4", "x");
    QString text;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        text = box->text();
        QCOMPARE(frames(), QStringList());
        box->accept();
    });
    m_tool->click("pushButton_SettingWritePID4");
    QCOMPARE(answer.count(), 1);
    QCOMPARE(text, "Please check parameter is complete");
    QCOMPARE(frames(), (QStringList{"45 040000803f000000000000000000000000", "04 04"}));
    QCOMPARE(m_tool->field("lineEdit_SettingI4"), "0.00");
}

void TestSetting::thumbRootForce()
{
    open();
    clearRecords();
    m_tool->click("pushButton_SettingWriteForceLimit5");
    QCOMPARE(m_tool->field("lineEdit_SettingForceLimit5"), "NULL");
    m_tool->click("pushButton_SettingReadForceLimit5");
    QCOMPARE(m_tool->field("lineEdit_SettingForceLimit5"), "NA");
    QCOMPARE(frames(), QStringList());
}

VANTO_TEST(TestSetting)

} // namespace vanto

#include "tst_setting.moc"
