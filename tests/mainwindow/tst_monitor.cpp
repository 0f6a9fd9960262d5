#include "currentlimits.h"
#include "monitortest.h"
#include "pageindex.h"
#include "recording.h"
#include "sequencedata.h"
#include "testmain.h"

#include <QCheckBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QProgressDialog>

#include <algorithm>
#include <csignal>

#include <sys/resource.h>

namespace vanto
{

/// The monitor in the real window: values, recordings, and that it never gets in the way.
class TestMonitor : public MonitorTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void values_data() { addProtocols(); }
    void values();
    void othersGoFirst_data() { addProtocols(); }
    void othersGoFirst();
    void recordsAndOpens_data() { addTextRows({"end"}, {{"stopped"}, {"hidden"}}); }
    void recordsAndOpens();
    void damagedRecording();
    void limits();
    void lostPort();
    void locked();
    void marksActions_data() { addProtocols(); }
    void marksActions();
    void requestWaitsForOneExchange_data() { addProtocols(); }
    void requestWaitsForOneExchange();
    void fullDisk();

private:
    static void addProtocols() { addTextRows({"protocol"}, {{"serialctrl"}, {"modbus"}}); }
    void openOver(const QString& protocol) { open({"--node", "2:" + protocol}); }
    void play(int steps, int delay) const;
    void record(const QString& path) const
    {
        choose("pushButton_MonitorRecord", path);
        QTRY_COMPARE(m_tool->find<QPushButton>("pushButton_MonitorRecord")->text(),
                     "Stop Recording");
    }
    bool onlyReads() const
    {
        for (const QString& frame : frames())
            if (frame.first(2).toInt(nullptr, 16) >= 0x40)
                return false;
        return writes().isEmpty();
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
    QFETCH(QString, end);
    const bool hidden = end == "hidden";
    open();
    showMonitor();
    clearRecords();
    QFile::remove("r.csv");
    const QString path = QDir::current().filePath("r.csv");
    record(path);
    QVERIFY(!m_tool->enabled("checkBox_MonitorForce"));
    command("set 2 current 0 55");
    const auto* state = m_tool->find<QLabel>("label_MonitorState");
    QTRY_VERIFY(state->text().contains("recorded"));
    m_tool->setField("lineEdit_MonitorMarker", "grip, \"one\"");
    m_tool->click("pushButton_MonitorMark");
    QTRY_COMPARE(value(0, 0), "55");
    const auto recorded = [&] { return loadRecording(path).recording; };
    QTRY_VERIFY(recorded().rowCount() > 15);
    auto* dock = m_tool->find<QDockWidget>("dock_Monitor");
    dock->setFloating(true); // the recording goes on
    const std::size_t rows = recorded().rowCount();
    QTRY_VERIFY(recorded().rowCount() > rows + 5);
    if (hidden)
        dock->close();
    else
        m_tool->click("pushButton_MonitorRecord");
    const QString message = hidden ? "hidden" : "samples recorded";
    QTRY_VERIFY(shown().filter(message).value(0).contains(path));
    if (hidden) {
        QTRY_VERIFY(idle());
        m_hand->clearTrace();
        QTest::qWait(400); // shows that nothing is read
        QCOMPARE(m_hand->requests().size(), 0);
        m_tool->trigger("action_Monitor");
    }
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
    QTRY_COMPARE(QImage("p.png").size(), QSize(1600, 900));
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

/// The limits are known without a read for the plot.
void TestMonitor::limits()
{
    CurrentLimits limits;
    open();
    command("set 2 current-limit 3 321");
    m_tool->showPage(SettingTab);
    m_tool->click("pushButton_SettingReadCurrentLimit3");
    QTRY_COMPARE(limits.of(2)[3].value_or(0), 321);
    QVERIFY(limits.of(2)[0] && !limits.of(3)[3]);
    m_tool->setField("lineEdit_SettingCurrentLimit3", "123");
    m_tool->click("pushButton_SettingWriteCurrentLimit3");
    QTRY_COMPARE(limits.of(2)[3].value_or(0), 123);
    close();
    QVERIFY(!limits.of(2)[3]);
}

/// After a lost port the values come again, and the recording has a gap.
void TestMonitor::lostPort()
{
    open();
    showMonitor();
    QFile::remove("lost.csv");
    record(QDir::current().filePath("lost.csv"));
    QTRY_VERIFY(loadRecording("lost.csv").recording.rowCount() > 0);
    command("unplug");
    QTRY_VERIFY(m_tool->find<QLabel>("label_MonitorState")->text().startsWith("0 Hz"));
    QVERIFY(m_hand->command("replug").startsWith("ok"));
    QTRY_VERIFY(!m_tool->find<QLabel>("label_MonitorState")->text().startsWith("0 Hz"));
    m_tool->click("pushButton_MonitorRecord");
    const Recording recording = loadRecording("lost.csv").recording;
    int gaps = 0; // several, if the machine is busy
    for (std::size_t row = 0; row < recording.rowCount(); ++row)
        gaps += recording.at(row, 0).afterGap;
    QVERIFY(gaps >= 1);
}

/// Between the nodes of a scan, and while a hand reboots for its calibration, nothing is read.
void TestMonitor::locked()
{
    open();
    showMonitor();
    asFastAsPossible();
    QTRY_VERIFY(!value(0, 0).isEmpty());
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
    QTRY_VERIFY(!m_hand->requests().isEmpty()); // then it goes on
}

/// Loads a sequence and plays it to its end.
void TestMonitor::play(int steps, int delay) const
{
    SequenceData data;
    for (int step = 0; step < steps; ++step)
        data.sequences.append({QList<int>(6, 1000 * step), QList<int>(6, 255), delay});
    QFile file("play.json");
    QVERIFY(file.open(QFile::WriteOnly) && file.write(data.toJSON()) > 0);
    file.close();
    m_tool->showPage(SequenceTab);
    DialogAnswer<QFileDialog> answer([](QFileDialog* dialog) {
        chooseFile(*dialog, QFileInfo("play.json").absoluteFilePath());
    });
    m_tool->click("pushButton_SeqLoad");
    QTRY_VERIFY(m_tool->enabled("pushButton_SeqRun"));
    m_tool->click("pushButton_SeqRun");
    QTRY_VERIFY(m_tool->enabled("pushButton_SeqRun"));
}

/// What the user makes the hand do is marked, and while a sequence plays the samples are those of
/// the player.
void TestMonitor::marksActions()
{
    QFETCH(QString, protocol);
    open({"--node", "2:" + protocol, "--speed", "50"});
    showMonitor();
    asFastAsPossible();
    m_tool->find<QCheckBox>("checkBox_MonitorAngle")->click();
    QFile::remove("marks.csv");
    record(QDir::current().filePath("marks.csv"));
    const auto recorded = [] { return loadRecording("marks.csv").recording; };
    const auto texts = [&] {
        const Recording recording = recorded();
        QStringList parts;
        for (const Marker& marker : recording.markers())
            parts.append(marker.text);
        return parts.join("; ");
    };
    m_tool->showPage(RunTab);
    m_tool->setField("lineEdit_RunPos1", "30000");
    m_tool->click("pushButton_RunSetPos1");
    QTRY_COMPARE(m_hand->command("get 2 target 1"), "ok 30000");
    m_tool->showPage(SettingTab);
    const QStringList gains{"P", "I", "D", "G"};
    for (int i = 0; i < 4; ++i)
        m_tool->setField(QString("lineEdit_Setting%1%2").arg(gains[i]).arg(5), QString::number(i));
    m_tool->click("pushButton_SettingWritePID5");
    QTRY_VERIFY(texts().contains("G 3.00"));
    m_hand->clearTrace();
    play(2, 2000); // long enough for a sample on a busy machine
    const QStringList all = protocol == "modbus" ? QStringList() : frames();
    const auto isMotion = [](const QString& frame) { return frame.startsWith("4c"); };
    const auto first = std::ranges::find_if(all, isMotion);
    const auto last = std::find_if(all.rbegin(), all.rend(), isMotion).base();
    QCOMPARE(std::count_if(first, last, isMotion), all.isEmpty() ? 0 : 12);
    QVERIFY(std::none_of(first, last, [](const QString& f) { return f.startsWith("10"); }));
    m_tool->click("pushButton_Halt");
    const QStringList expected{"Set Index: 30000",
                               "Write Thumb root: P 0.00, I 1.00, D 2.00, G 3.00", "Step 1",
                               "Step 2", "Halt"};
    QTRY_COMPARE(texts(), expected.join("; "));
    m_tool->click("pushButton_MonitorRecord");
    const Recording recording = recorded();
    const auto timeOf = [&](const QString& text) {
        return std::ranges::find_if(
                   recording.markers(),
                   [&](const Marker& marker) { return marker.text.contains(text); })
            ->timeUs;
    };
    int played = 0;
    for (std::size_t row = 0; row < recording.rowCount(); ++row) {
        const std::int64_t time = recording.timeAt(row);
        if (time <= timeOf("Step 1") || time >= timeOf("Step 2"))
            continue;
        played += !recording.at(row, 0).isEmpty() && !recording.at(row, 6).isEmpty();
        QVERIFY(recording.at(row, 12).isEmpty());
    }
    QVERIFY(played >= 1);
}

/// At the highest rate at most the exchange in progress comes before a request of the user.
void TestMonitor::requestWaitsForOneExchange()
{
    QFETCH(QString, protocol);
    openOver(protocol);
    showMonitor();
    asFastAsPossible();
    m_tool->showPage(SettingTab);
    QTRY_VERIFY(!value(0, 0).isEmpty());
    bool clicked = false;
    duringExchange([&] {
        m_hand->clearTrace();
        m_tool->click("pushButton_SettingWriteCurrentLimit3");
        clicked = true;
    });
    const auto write = [&] {
        const auto requests = m_hand->requests();
        for (qsizetype i = 0; i < requests.size(); ++i) {
            const auto code =
                static_cast<std::uint8_t>(requests[i].bytes[protocol == "modbus" ? 1 : 4]);
            if (code == (protocol == "modbus" ? 6 : 0x46))
                return i;
        }
        return qsizetype{-1};
    };
    QTRY_VERIFY(clicked && write() >= 0);
    // Over Modbus it is two requests if it reads positions.
    const qsizetype before = protocol == "modbus" ? 2 : 1;
    QVERIFY2(write() <= before, qPrintable(QString::number(write())));
}

/// A recording that fails ends with a message. A limit of the file size fails like a full disk.
void TestMonitor::fullDisk()
{
    open();
    showMonitor();
    asFastAsPossible();
    QFile::remove("full.csv");
    record(QDir::current().filePath("full.csv"));
    QTRY_VERIFY(loadRecording("full.csv").recording.rowCount() > 0);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limited{rlim_t(QFileInfo("full.csv").size()), before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limited);
    const auto failed = [&] { return m_tool->errorText().contains("full.csv"); };
    const bool hasFailed = QTest::qWaitFor(failed, 30'000);
    ::setrlimit(RLIMIT_FSIZE, &before);
    QVERIFY(hasFailed);
    QCOMPARE(m_tool->find<QPushButton>("pushButton_MonitorRecord")->text(), "Record...");
    QVERIFY(loadRecording("full.csv").recording.rowCount() > 0);
}

VANTO_TEST(TestMonitor)

} // namespace vanto

#include "tst_monitor.moc"
