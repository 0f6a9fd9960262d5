#include "handtest.h"
#include "testmain.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

namespace vanto
{

/// Losing the port or the hand and getting them back, in the real window.
class TestConnection : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void lostAndBack_data();
    void lostAndBack();
    void lostDuringReload();
    void lostAgain_data();
    void lostAgain();
    void startsLater();
    void lostAtLastNode();
    void lostAfterSetId();
    void otherHandComesBack();
    void silentHand_data();
    void silentHand();
    void damagedStateFile();
    void lastHandIsSuggested();
    void openNode_data();
    void openNode();

private:
    QString state() const { return m_tool->find<QLabel>("label_ConnectionState")->text(); }
    void replug() const { QVERIFY(m_hand->command("replug").startsWith("ok")); }
    QStringList motions() const { return frames({0x4B, 0x4C, 0x4D, 0x4F, 0x50, 0x51}); }

    /// Time-out where an exchange is cut: over SerialCtrl it ends with its time-out.
    static constexpr int CutMs = 1000;
    const QString Lost = "The port has been lost. Check the cable.";
};

void TestConnection::lostAndBack_data()
{
    QTest::addColumn<QString>("hand");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("control"); // clicked, so that its exchange is cut
    QTest::newRow("Basic page, idle") << "2" << int{BasicTab} << "";
    QTest::newRow("Basic page") << "2" << int{BasicTab} << "pushButton_BasicBeep";
    QTest::newRow("Setting page") << "2" << int{SettingTab} << "pushButton_SettingReadPID3";
    QTest::newRow("Run page") << "2" << int{RunTab} << "";
    QTest::newRow("Force page") << "2" << int{ForceTab} << "";
    QTest::newRow("Sequence page") << "2" << int{SequenceTab} << "pushButton_SeqInsert";
    QTest::newRow("Basic page, Modbus") << "2:modbus" << int{BasicTab} << "pushButton_BasicBeep";
    QTest::newRow("Setting page, Modbus")
        << "2:modbus" << int{SettingTab} << "pushButton_SettingReadPID3";
    QTest::newRow("Run page, Modbus") << "2:modbus" << int{RunTab} << "";
}

void TestConnection::lostAndBack()
{
    QFETCH(QString, hand);
    QFETCH(int, page);
    QFETCH(QString, control);
    expectTimeouts(CutMs);
    open({"--node", hand});
    QCOMPARE(state(), "Connected");
    m_tool->showPage(page);
    auto* gain = m_tool->find<QLineEdit>("lineEdit_SettingP2");
    gain->selectAll();
    QTest::keyClicks(gain, "7.5");
    const QString current = m_tool->field("lineEdit_SettingCurrentLimit1");
    clearRecords();
    if (control.isEmpty()) {
        command("unplug");
    } else {
        command("fault late ms=1000");
        duringExchange([this] { command("unplug"); });
        m_tool->click(control);
    }
    QTRY_COMPARE(state(), "Port lost");
    QTRY_COMPARE(shown().count(Lost), 1);
    for (const char* disabled : {"pushButton_BasicBeep", "pushButton_SettingWritePID2",
                                 "pushButton_RunSetPos0", "tableWidget_Seq", "pushButton_SeqLoad"})
        QVERIFY2(!m_tool->enabled(disabled), disabled);
    QVERIFY(m_tool->enabled("pushButton_BasicReloadBasic"));
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.7"); // stays readable
    QCOMPARE(m_tool->devices()->count(), 1);
    replug();
    QTRY_VERIFY_WITH_TIMEOUT(shown().contains("Reconnected"), 20'000);
    QCOMPARE(state(), "Connected");
    QVERIFY(m_tool->enabled("pushButton_BasicBeep"));
    QCOMPARE(gain->text(), "7.5"); // was typed and not sent
    QCOMPARE(m_tool->field("lineEdit_SettingCurrentLimit1"), current);
    QCOMPARE(shown().count(Lost), 1);
    QVERIFY2(shown().filter("Timeout").isEmpty() && shown().filter("returned").isEmpty(),
             qPrintable(shown().join('\n')));
    QCOMPARE(motions(), QStringList());
}

void TestConnection::lostDuringReload()
{
    expectTimeouts(150);
    open();
    clearRecords();
    duringExchange([this] { command("unplug"); });
    m_tool->click("pushButton_BasicReloadBasic");
    QTRY_COMPARE(state(), "Port lost");
    QTRY_COMPARE(shown(), QStringList{Lost}); // the exchange that was cut is not reported
    clearRecords();
    m_tool->click("pushButton_BasicReloadBasic"); // the port cannot be opened
    QCOMPARE(shown().count("Timeout for SerialCtrl node '0x02'..."), 6);
    QCOMPARE(shown().constLast(), "Basic info loaded");
    QCOMPARE(state(), "Port lost");
    ReplyLimits::current() = PatientLimits;
    replug();
    QTRY_VERIFY(idle());
    m_tool->click("pushButton_BasicReloadBasic");
    QTRY_COMPARE_WITH_TIMEOUT(state(), "Connected", 20'000);
}

void TestConnection::otherHandComesBack()
{
    open();
    command("unplug");
    QTRY_COMPARE(shown().count(Lost), 1); // follows the state
    command("set 2 start 3 77");          // the calibration of another hand
    clearRecords();
    replug();
    QTRY_COMPARE_WITH_TIMEOUT(state(), "Not connected", 20'000);
    QTRY_COMPARE(
        shown(),
        QStringList{
            "Another hand answers (firmware V1.4.7, hardware 1B01). It has not been opened."});
    QVERIFY(!m_tool->enabled("pushButton_BasicBeep"));
    m_hand->clearTrace();
    QTest::qWait(1500); // the search has ended
    QCOMPARE(frames(), QStringList());
}

void TestConnection::lostAgain_data()
{
    addTextRows({"hand"}, {{"2"}, {"2:modbus"}});
}

/// The port is lost a second time while the hand is recognized.
void TestConnection::lostAgain()
{
    QFETCH(QString, hand);
    expectTimeouts(CutMs);
    open({"--node", hand});
    clearRecords();
    command("unplug");
    QTRY_COMPARE(shown().count(Lost), 1);
    replug();
    bool lost = false;
    duringExchange([&] {
        command("unplug");
        lost = true;
    });
    QTRY_VERIFY_WITH_TIMEOUT(lost && idle(), 20'000);
    QCOMPARE(state(), "Port lost");
    replug();
    QTRY_COMPARE_WITH_TIMEOUT(state(), "Connected", 20'000);
    QCOMPARE(shown().count(Lost), 1);
    QVERIFY(shown().filter("Another").isEmpty());
    QCOMPARE(motions(), QStringList());
}

/// The hand needs some time after the port has come back.
void TestConnection::startsLater()
{
    expectTimeouts();
    open();
    command("unplug");
    QTRY_COMPARE(shown().count(Lost), 1);
    clearRecords();
    command("hang");
    replug();
    const QString waiting = "The port is back. The hand does not answer yet.";
    QTRY_VERIFY_WITH_TIMEOUT(shown().contains(waiting), 20'000);
    QTest::qWait(1500); // one more try
    QCOMPARE(shown(), QStringList{waiting});
    command("hang off");
    ReplyLimits::current() = PatientLimits;
    QTRY_COMPARE_WITH_TIMEOUT(state(), "Connected", 20'000);
    QCOMPARE(motions(), QStringList());
}

void TestConnection::lostAtLastNode()
{
    expectTimeouts();
    open();
    DialogAnswer<QDialog> answer([](QDialog* dialog) {
        for (auto* box : dialog->findChildren<QSpinBox*>())
            box->setValue(2);
        dialog->accept();
    });
    m_tool->trigger("action_Scan_Range");
    QCOMPARE(answer.count(), 1);
    clearRecords();
    command("fault late ms=1000");
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&] {
        const auto requests = m_hand->requests();
        if (requests.isEmpty() || requests.constLast().protocol == "modbus")
            return; // the first protocol
        timer.stop();
        command("unplug");
    });
    timer.start(10);
    m_tool->click("pushButton_ScanDevices");
    QTRY_VERIFY(!timer.isActive());
    QTRY_COMPARE(shown().count(Lost), 1);
    QCOMPARE(state(), "Not connected");
    QCOMPARE(answer.count(), 1);
}

/// Nothing is looked for if no hand is chosen.
void TestConnection::lostAfterSetId()
{
    open();
    DialogAnswer<QInputDialog> answer([](QInputDialog* dialog) {
        dialog->setIntValue(7);
        dialog->accept();
    });
    m_tool->click("pushButton_BasicSetID");
    QTRY_COMPARE(state(), "No hand chosen");
    for (const char* control : {"pushButton_SettingWritePID2", "pushButton_RunSetPos0"})
        QVERIFY2(!m_tool->enabled(control), control);
    command("unplug");
    QTRY_COMPARE(shown().count(Lost), 1);
    m_hand->clearTrace();
    replug();
    QTest::qWait(1500); // longer than the interval at which a port is looked for
    QCOMPARE(frames(), QStringList());
    QCOMPARE(state(), "Port lost");
}

void TestConnection::silentHand_data()
{
    QTest::addColumn<QString>("hand");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("control");
    QTest::newRow("Basic page") << "2" << int{BasicTab} << "pushButton_BasicReloadBasic";
    QTest::newRow("Setting page") << "2" << int{SettingTab} << "pushButton_SettingReadPID3";
    QTest::newRow("Run page") << "2" << int{RunTab} << "";
    QTest::newRow("Sequence page") << "2" << int{SequenceTab} << "pushButton_SeqInsert";
    QTest::newRow("Run page, Modbus") << "2:modbus" << int{RunTab} << "";
}

void TestConnection::silentHand()
{
    QFETCH(QString, hand);
    QFETCH(int, page);
    QFETCH(QString, control);
    expectTimeouts(300);
    open({"--node", hand});
    m_tool->showPage(page);
    clearRecords();
    command("hang");
    for (int i = 0; i < 3 && !control.isEmpty(); ++i) // each fails
        m_tool->click(control);
    QTRY_COMPARE_WITH_TIMEOUT(state(), "No answer", 20'000);
    QTRY_COMPARE(shown().count("The hand does not answer. Check its power."), 1);
    QTRY_VERIFY(idle());
    if (page == int{SequenceTab})
        QTest::qWait(1000); // until the row that Insert selects has been played
    clearRecords();
    QTest::qWait(2500); // measures how often it is asked
    // Over Modbus a request is repeated once.
    QVERIFY2(frames().size() <= (hand.endsWith("modbus") ? 8 : 4), qPrintable(frames().join('\n')));
    QCOMPARE(shown(), QStringList());
    command("hang off");
    ReplyLimits::current() = ReplyLimits().scaled(40); // longer ones delay the next request
    QTRY_COMPARE_WITH_TIMEOUT(state(), "Connected", 20'000);
    QTRY_COMPARE(shown().count("The hand answers again"), 1);
    QTRY_VERIFY(page != int{RunTab} || !m_tool->field("lineEdit_RunCurrent0").isEmpty());
    QCOMPARE(motions(), QStringList());
}

void TestConnection::damagedStateFile()
{
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(QDir::currentPath())); // as the window driver
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QVERIFY(QDir().mkpath(folder));
    QFile file(folder + "/state.ini");
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("[lastHand]\nnode=999\nport=/tmp/other\n\0\xff[[[");
    file.close();
    const WindowDriver tool({"/tmp/first", "/tmp/other"});
    QTRY_COMPARE(tool.ports()->currentData().toString(), "/tmp/first");
    QVERIFY(file.remove());
}

void TestConnection::lastHandIsSuggested()
{
    open({"--node", "7:modbus"});
    clearRecords();
    const WindowDriver next({"/tmp/other", m_hand->portName()});
    QTRY_COMPARE(next.ports()->currentData().toString(), m_hand->portName());
    QString node;
    QString protocol;
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        node = dialog->findChild<QLineEdit*>("lineEdit_Node")->text();
        protocol = dialog->findChild<QComboBox*>("comboBox_Protocol")->currentText();
        dialog->reject();
    });
    next.trigger("action_Open_Node");
    QTRY_COMPARE(node, "7");
    QCOMPARE(protocol, "Modbus RTU");
    QCOMPARE(frames(), QStringList());
}

void TestConnection::openNode_data()
{
    addTextRows({"node", "shown", "devices"},
                {{"7", "Basic info loaded", "2"},
                 {"0x7", "Basic info loaded", "2"},
                 {"2", "Basic info loaded", "1"}, // is listed already
                 {"9", "No hand answers at node 9.", "1"},
                 {"256", "Enter a number from 0 to 255.", "1"},
                 {"abc", "Enter a number from 0 to 255.", "1"},
                 {"0", "Node 0 is available only over SerialCtrl. Choose this protocol.", "1"}});
}

void TestConnection::openNode()
{
    expectTimeouts();
    open({"--node", "2", "--node", "7"});
    clearRecords();
    QFETCH(QString, node);
    QStringList complaints;
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        dialog->findChild<QLineEdit*>("lineEdit_Node")->setText(node);
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        for (const QLabel* label : dialog->findChildren<QLabel*>())
            complaints.append(label->text());
        if (dialog->isVisible()) // otherwise it has been accepted
            dialog->reject();
    });
    m_tool->trigger("action_Open_Node");
    QTRY_VERIFY(idle());
    QCOMPARE(answer.count(), 1);
    QFETCH(QString, shown);
    QTRY_VERIFY2((this->shown() + complaints).contains(shown), qPrintable(complaints.join('|')));
    QTEST(QString::number(m_tool->devices()->count()), "devices");
    if (!complaints.contains(shown))
        QCOMPARE(state(), shown.startsWith("Basic") ? "Connected" : "Not connected");
    else
        QCOMPARE(frames(), QStringList()); // nothing is sent
    if (!complaints.contains(shown)) {
        m_tool->devices()->setCurrentIndex(-1);
        m_tool->devices()->setCurrentIndex(0); // opens it, also after a failure
        QTRY_COMPARE(state(), "Connected");
    }
    QCOMPARE(motions(), QStringList());
}

VANTO_TEST(TestConnection)

} // namespace vanto

#include "tst_connection.moc"
