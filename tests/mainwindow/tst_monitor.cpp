#include "handtest.h"
#include "recording.h"
#include "testmain.h"

#include <QCheckBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QProgressDialog>
#include <QTableWidget>

namespace vanto
{

/// The monitor in the real window: values, recordings, and that it never gets in the way.
class TestMonitor : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void values_data() { addProtocols(); }
    void values();
    void othersGoFirst_data() { addProtocols(); }
    void othersGoFirst();
    void recordsAndOpens();
    void damagedRecording();
    void lostPort();
    void locked();

private:
    static void addProtocols() { addTextRows({"protocol"}, {{"serialctrl"}, {"modbus"}}); }
    void openOver(const QString& protocol) { open({"--node", "2:" + protocol}); }
    void showMonitor() const
    {
        m_tool->trigger("action_Monitor");
        QVERIFY(m_tool->find<QDockWidget>("dock_Monitor")->isVisible());
    }
    void asFastAsPossible() const
    {
        m_tool->find<QComboBox>("comboBox_MonitorRate")->setCurrentIndex(3);
    }
    QString value(int finger, int column) const
    {
        return m_tool->find<QTableWidget>("tableWidget_Monitor")->item(finger, column)->text();
    }
    bool onlyReads() const
    {
        for (const QString& frame : frames())
            if (frame.first(2).toInt(nullptr, 16) >= 0x40)
                return false;
        return writes().isEmpty();
    }
    /// The file dialog that the click opens.
    void choose(const QString& button, const QString& path) const
    {
        m_tool->click(button);
        QVERIFY(!QApplication::activeModalWidget()); // Stop remains available
        const QPointer<QFileDialog> files =
            m_tool->find<QDockWidget>("dock_Monitor")->findChild<QFileDialog*>();
        QVERIFY(files);
        chooseFile(*files, path);
        QTRY_VERIFY(!files);
    }
};

void TestMonitor::values()
{
    QFETCH(QString, protocol);
    openOver(protocol);
    clearRecords();
    showMonitor();
    m_tool->find<QCheckBox>("checkBox_MonitorAngle")->click();
    m_tool->find<QCheckBox>("checkBox_MonitorForce")->click();
    command("set 2 current 4 77");
    command("set 2 angle 1 -1");
    command("set 2 force 4 1234");
    command("set 2 position 5 4321");
    command("set 2 angle 3 10000");
    QTRY_COMPARE(value(4, 0), "77");
    QTRY_COMPARE(value(5, 1), "4321");
    QTRY_COMPARE(value(3, 2), "100.00");
    QTRY_COMPARE(value(4, 3), "1234");
    QVERIFY(!value(0, 0).isEmpty() && value(5, 3).isEmpty()); // the thumb root has no force
    QTRY_VERIFY(m_tool->find<QLabel>("label_MonitorState")->text().endsWith(" Hz"));
    QVERIFY(onlyReads());
    m_tool->trigger("action_Monitor");
    QTRY_VERIFY(idle());
    m_hand->clearTrace();
    QTest::qWait(400); // hidden, it reads nothing
    QCOMPARE(m_hand->requests().size(), 0);
}

/// At the highest rate, requests of the user, the Run page and the player go on.
void TestMonitor::othersGoFirst()
{
    QFETCH(QString, protocol);
    openOver(protocol);
    showMonitor();
    asFastAsPossible();
    QTRY_VERIFY(!value(0, 0).isEmpty());
    m_tool->click("pushButton_BasicBeep");
    QTRY_VERIFY(shown().contains("Beep succeeded"));
    m_tool->showPage(RunTab);
    for (const char* current : {"41", "42", "43"}) {
        command(QString("set 2 current 3 ") + current);
        QTRY_COMPARE(m_tool->field("lineEdit_RunCurrent3"), current);
        // Values wait for time to paint, which is short on a busy machine.
        QTRY_COMPARE_WITH_TIMEOUT(value(3, 0), current, 30'000);
    }
    m_tool->setField("lineEdit_RunPos1", "30000");
    m_tool->click("pushButton_RunSetPos1");
    QTRY_COMPARE(m_hand->command("get 2 target 1"), "ok 30000");
    QTRY_COMPARE(m_hand->command("get 2 moving 1"), "ok 0");
    QTRY_COMPARE_WITH_TIMEOUT(value(1, 1), "30000", 30'000);
    QVERIFY(m_hand->command("stats").contains("overlaps=0"));
    QCOMPARE(m_tool->errorText(), QString());
}

void TestMonitor::recordsAndOpens()
{
    open();
    showMonitor();
    clearRecords();
    QFile::remove("r.csv");
    const QString path = QDir::current().filePath("r.csv");
    choose("pushButton_MonitorRecord", path);
    QVERIFY(!m_tool->enabled("checkBox_MonitorForce"));
    command("set 2 current 0 55");
    const auto* state = m_tool->find<QLabel>("label_MonitorState");
    QTRY_VERIFY(state->text().contains("recorded"));
    m_tool->setField("lineEdit_MonitorMarker", "grip, \"one\"");
    m_tool->click("pushButton_MonitorMark");
    QTRY_COMPARE(value(0, 0), "55");
    m_tool->trigger("action_Monitor"); // hidden, the recording goes on
    const auto recorded = [&] { return loadRecording(path).recording; };
    QTRY_VERIFY(recorded().rowCount() > 15);
    m_tool->trigger("action_Monitor");
    m_tool->click("pushButton_MonitorRecord");
    QVERIFY(shown().constLast().contains("samples recorded"));
    const Recording recording = recorded();
    QCOMPARE(recording.markers().value(0).text, "grip, \"one\"");
    QCOMPARE(recording.at(recording.rowCount() - 1, 0).max, 55);
    QVERIFY(onlyReads());

    if (!m_tool->window()->findChild<QPushButton*>("pushButton_MonitorOpen"))
        return; // a build without plots
    qApp->setStyleSheet("QLabel { margin: 0px }");
    choose("pushButton_MonitorOpen", path);
    QTRY_VERIFY(m_tool->window()->findChild<QDialog*>("recordingView"));
    QTRY_VERIFY(!m_tool->window()->findChild<QProgressDialog*>());
    qApp->setStyleSheet("QLabel { margin: 1px }"); // the style must not know the deleted dialog
    QVERIFY(!QApplication::activeModalWidget());
    qApp->setStyleSheet({});
    m_tool->find<QDialog>("recordingView")->close();
    QFile::remove("p.png");
    choose("pushButton_MonitorPicture", QDir::current().filePath("p.png"));
    const QImage picture("p.png");
    QCOMPARE(picture.size(), QSize(1600, 900));
}

void TestMonitor::damagedRecording()
{
    TestWindow tool;
    tool.trigger("action_Monitor");
    if (!tool.window()->findChild<QPushButton*>("pushButton_MonitorOpen"))
        QSKIP("built without plots");
    QFile file("bad.csv");
    QVERIFY(file.open(QFile::WriteOnly) && file.write("time_s,force_index\n1,x\n") > 0);
    file.close();
    tool.click("pushButton_MonitorOpen");
    auto* dock = tool.find<QDockWidget>("dock_Monitor");
    chooseFile(*dock->findChild<QFileDialog*>(), QDir::current().filePath("bad.csv"));
    QTRY_VERIFY(dock->findChild<QMessageBox*>());
    QCOMPARE(dock->findChild<QMessageBox*>()->informativeText(), "Line 2: 'x' is not a number.");
}

/// After a lost port the values come again, and the recording has a gap.
void TestMonitor::lostPort()
{
    open();
    showMonitor();
    QFile::remove("lost.csv");
    choose("pushButton_MonitorRecord", QDir::current().filePath("lost.csv"));
    QTRY_VERIFY(!value(0, 0).isEmpty());
    command("unplug");
    QTRY_VERIFY(m_tool->find<QLabel>("label_MonitorState")->text().startsWith("0 Hz"));
    QVERIFY(m_hand->command("replug").startsWith("ok"));
    QTRY_VERIFY(!m_tool->find<QLabel>("label_MonitorState")->text().startsWith("0 Hz"));
    m_tool->click("pushButton_MonitorRecord");
    const Recording recording = loadRecording("lost.csv").recording;
    int gaps = 0;
    for (std::size_t row = 0; row < recording.rowCount(); ++row)
        gaps += recording.at(row, 0).afterGap;
    QCOMPARE(gaps, 1);
}

/// Between the nodes of a scan, and while a hand reboots for its calibration, nothing is read.
void TestMonitor::locked()
{
    open();
    showMonitor();
    asFastAsPossible();
    QTRY_VERIFY(!value(0, 0).isEmpty());
    expectTimeouts(100);
    bool checked = false;
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        if (box && !checked) {
            QTRY_VERIFY(idle());
            m_hand->clearTrace();
            QTest::qWait(300); // shows that nothing is read
            QCOMPARE(m_hand->requests().size(), 0);
            checked = true;
        }
        dialog->reject();
    });
    m_tool->click("pushButton_BasicRecalibrate");
    QTRY_VERIFY(checked);
    QTRY_VERIFY(m_hand->requests().size() > 0); // then it goes on
}

VANTO_TEST(TestMonitor)

} // namespace vanto

#include "tst_monitor.moc"
