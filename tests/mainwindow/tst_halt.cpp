#include "calibrationprocedure.h"
#include "handtest.h"
#include "pageindex.h"
#include "testmain.h"

#include <QInputDialog>
#include <QLabel>
#include <QSlider>
#include <QTableWidget>
#include <QTemporaryFile>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <unistd.h>

namespace vanto
{

namespace
{
/// Commands of SerialCtrl.
constexpr int FingerStart = 0x49;
constexpr int FingerStop = 0x4A;
constexpr int WritePositions = 0x50;

/// Runs the event loop. Returns what was written to standard error.
QByteArray errorsUntilEnd()
{
    QTemporaryFile errors;
    if (!errors.open())
        return "no file";
    const int saved = dup(STDERR_FILENO);
    dup2(errors.handle(), STDERR_FILENO);
    QApplication::exec();
    dup2(saved, STDERR_FILENO);
    ::close(saved);
    errors.seek(0);
    return errors.readAll();
}
} // namespace

/// The halt of the real window, against hands that move.
class TestHalt : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void halts_data();
    void halts();
    void faults_data();
    void faults();
    void keys();
    void anyNode_data();
    void anyNode();
    void handJustLeft_data() { addBoolRows("setId", "other node", "ports refreshed"); }
    void handJustLeft();
    void calibration();
    void focusInPlay();
    void exit_data();
    void exit();

private:
    QString state() const { return m_tool->find<QLabel>("label_ConnectionState")->text(); }
    QList<int> positions() const;
    bool stands(const QList<int>& expected) const;
    void moveFinger(int finger) const;
    void openAnyNode() const;
    void press() const { m_tool->click("pushButton_Halt"); }
    void proceed() const;
    QStringList motions() const { return frames({0x4B, 0x4C, 0x4D, 0x4F, WritePositions, 0x51}); }

    const QString Refusal = "Halted. Press Continue.";
};

QList<int> TestHalt::positions() const
{
    QList<int> positions;
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        positions.append(
            m_hand->command(QString("get 2 position %1").arg(finger)).section(' ', 1).toInt());
    return positions;
}

/// At speed 1 a finger may still settle into its target.
bool TestHalt::stands(const QList<int>& expected) const
{
    return std::ranges::equal(positions(), expected, [](int position, int other) {
        return std::abs(position - other) <= 64;
    });
}

/// Sends a finger to the far end, at full speed.
void TestHalt::moveFinger(int finger) const
{
    m_tool->setField(QString("lineEdit_RunPos%1").arg(finger), "65535");
    m_tool->click(QString("pushButton_RunSetPos%1").arg(finger));
}

void TestHalt::openAnyNode() const
{
    m_tool->list({"0xff (SerialCtrl V1.4.7, Protocol V3.0)"});
    m_tool->devices()->setCurrentIndex(m_tool->devices()->count() - 1);
    QTRY_COMPARE(state(), "Connected");
    QTRY_VERIFY(idle());
}

/// A click on Continue right after the halt counts as one more halt.
void TestHalt::proceed() const
{
    QTest::qWait(800);
    m_tool->click("pushButton_Halt");
    QTRY_COMPARE(state(), "Connected");
}

void TestHalt::halts_data()
{
    QTest::addColumn<QString>("hand");
    QTest::addColumn<QString>("during");
    for (const char* hand : {"2", "2:modbus"})
        for (const char* during : {"motion", "reload", "held slider", "Insert", "play"})
            QTest::addRow("%s, %s", hand, during) << hand << during;
    QTest::newRow("hand that latches a stop") << "2 --latch-stop"
                                              << "motion";
    QTest::newRow("hand that applies a speed at once") << "2:modbus --speed-at-once"
                                                       << "motion";
}

void TestHalt::halts()
{
    QFETCH(QString, hand);
    QFETCH(QString, during);
    open(QStringList{"--node"} + hand.split(' '));
    m_tool->showPage(RunTab);
    moveFinger(1);
    // Holds something shortly before its target, and keeps pressing.
    m_tool->setField("lineEdit_RunSpeed4", "0");
    m_tool->setField("lineEdit_RunPos4", "60");
    m_tool->click("pushButton_RunSetPos4");
    auto* slider = m_tool->find<QSlider>("verticalSlider_RunPos3");
    if (during == "held slider") {
        slider->setSliderDown(true);
        slider->setSliderPosition(40'000);
    } else if (during == "Insert" || during == "play") {
        m_tool->showPage(SequenceTab);
        m_tool->click("pushButton_SeqInsert");
        if (during == "play")
            QTRY_VERIFY(m_tool->enabled("pushButton_SeqStop")); // the row is played for edit
    }
    clearRecords();
    if (during == "reload") {
        duringExchange([this] { press(); });
        m_tool->click("pushButton_BasicReloadBasic");
    } else {
        press();
    }
    QTRY_COMPARE(state(), "Halted");
    QTRY_VERIFY(idle());
    QTRY_VERIFY(shown().contains("Halted"));
    const QList<int> stopped = positions();
    if (during == "motion")
        QCOMPARE(m_hand->command("get 2 target 4"), "ok 60");
    slider->setSliderDown(false);
    const bool modbus = hand.contains("modbus");
    m_hand->clearTrace();
    m_tool->showPage(RunTab);
    moveFinger(1);
    QTRY_VERIFY(shown().contains(Refusal));
    QVERIFY(stands(stopped));
    QCOMPARE(modbus ? writes() : motions(), QStringList());
    QCOMPARE(m_tool->find<QPushButton>("pushButton_Halt")->text(), "Continue");

    proceed();
    QCOMPARE(frames({FingerStart}).size(), modbus ? 0 : 1);
    QVERIFY(stands(stopped));
    moveFinger(1);
    QTRY_VERIFY(!stands(stopped));
}

void TestHalt::faults_data()
{
    QTest::addColumn<QString>("hand");
    QTest::addColumn<QString>("frame"); // to which the fault applies
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("always");
    const QList<QPair<QString, QStringList>> frames{
        {"2", {"command=74", "command=15", "command=80"}},
        {"2:modbus",
         {"command=3 register=1135", "command=3 register=1145", "command=16 register=1125",
          "command=16 register=1135"}}};
    for (const auto& [hand, all] : frames)
        for (const QString& frame : all)
            for (const char* fault : {"drop", "refuse", "garble", "late ms=500"})
                for (const bool always : {false, true})
                    if (hand == "2" || fault[0] == 'd' || fault[0] == 'r')
                        QTest::addRow("%s %s %s", qPrintable(frame), fault,
                                      always ? "always" : "once")
                            << hand << frame << QString(fault) << always;
}

void TestHalt::faults()
{
    QFETCH(QString, hand);
    QFETCH(QString, frame);
    QFETCH(QString, fault);
    QFETCH(bool, always);
    open({"--node", hand, "--speed", "0.05"}); // 20 s for the way to the target
    m_tool->showPage(RunTab);
    moveFinger(1);
    QTRY_VERIFY(idle());
    expectTimeouts(200);
    command(QString("fault %1 %2 count=%3").arg(fault, frame).arg(always ? 0 : 1));
    clearRecords();
    press();
    // The result of the first frame decides nothing; the others have to be answered.
    // A late reply to a write answers its repetition.
    const bool answered = frame == "command=74" || (frame == "command=80" && fault[0] == 'l');
    if (always && !answered) {
        QTRY_COMPARE(state(), "Halt not confirmed.\nSwitch the power off.");
        QVERIFY(shown().contains("Halt not confirmed. Switch the power off."));
        m_tool->click("pushButton_BasicBeep"); // everything else waits for the end
        QTest::qWait(300);
        QCOMPARE(frames({0x62}), QStringList());
        QVERIFY(!writes().join(' ').contains("1010:"));
        command("clear");
    }
    QTRY_COMPARE(state(), "Halted");
    QTRY_VERIFY(idle());
    // It may return at speed 1 to where the halt found it, but must not go on to its old target,
    // neither fast nor at speed 1.
    const int halted = positions().at(1);
    QTest::qWait(500);
    QVERIFY(positions().at(1) <= halted + 64);
    QVERIFY(m_hand->command("get 2 target 1").section(' ', 1).toInt() < 60'000);
}

void TestHalt::keys()
{
    open();
    const auto pressKey = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* dialog = QApplication::activeModalWidget();
        QTest::keyClick(dialog ? dialog : m_tool->window(), key, modifiers);
    };
    for (const auto& [key, modifiers] : {std::pair{Qt::Key_Escape, Qt::NoModifier},
                                         {Qt::Key_Escape, Qt::ShiftModifier},
                                         {Qt::Key_Pause, Qt::NoModifier}}) {
        pressKey(key, modifiers);
        QTRY_COMPARE(state(), "Halted");
        proceed();
    }
    clearRecords();
    QStringList states;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        pressKey(Qt::Key_Pause);
        QTRY_COMPARE(state(), "Halted"); // under the dialog
        QTRY_VERIFY(idle());
        m_hand->clearTrace();
        pressKey(Qt::Key_Escape); // only closes the dialog
        QVERIFY(!box->isVisible());
        states.append(state());
    });
    m_tool->trigger("action_About");
    QTRY_COMPARE(states.size(), 1);
    QCOMPARE(frames({FingerStop}), QStringList());
}

void TestHalt::anyNode_data()
{
    addBoolRows("listed", "with listed hands", "alone in the list");
}

void TestHalt::anyNode()
{
    QFETCH(bool, listed);
    open({"--node", "2", "--node", "3"}, 2);
    if (!listed)
        m_tool->click("pushButton_RefreshPorts"); // empties the list
    openAnyNode();
    m_tool->showPage(RunTab);
    clearRecords();
    press();
    if (listed) {
        QTRY_COMPARE(state(), "Halted");
    } else {
        QTRY_COMPARE(state(), "Stop sent to all hands, not confirmed.\nSwitch the power off.");
        QCOMPARE(m_tool->find<QPushButton>("pushButton_Halt")->text(), "Halt not\nconfirmed");
    }
    QTRY_VERIFY(idle());
    QCOMPARE(addressed().constFirst(), "ff:4a");
    QCOMPARE(addressed().count("ff:50"), 0); // positions are never written to all
    for (const char* node : {"02", "03"})
        QCOMPARE(addressed().count(QString("%1:50").arg(node)), listed ? 2 : 0);
}

/// A hand that moves while the connection changes can still be halted.
void TestHalt::handJustLeft()
{
    QFETCH(bool, setId);
    open();
    m_tool->showPage(RunTab);
    moveFinger(1);
    DialogAnswer<QInputDialog> answer([](QInputDialog* dialog) {
        dialog->setIntValue(7);
        dialog->accept();
    });
    command("set 2 reboot-time 0");
    m_tool->click(setId ? "pushButton_BasicSetID" : "pushButton_RefreshPorts");
    QTRY_COMPARE(state(), setId ? "No hand chosen" : "Not connected");
    clearRecords();
    QVERIFY(m_tool->enabled("pushButton_Halt"));
    press();
    QTRY_COMPARE(m_tool->find<QPushButton>("pushButton_Halt")->text(), "Continue");
    QCOMPARE(m_hand->command(QString("get %1 moving 1").arg(setId ? 7 : 2)), "ok 0");
    QCOMPARE(addressed().filter("02:").isEmpty(), setId);
    m_tool->list({QString("0x0%1 (SerialCtrl V1.4.7, Protocol V3.0)").arg(setId ? 7 : 2)});
    QTRY_COMPARE(state(), "Halted"); // also after it has been opened again
    proceed();
}

void TestHalt::calibration()
{
    open();
    QStringList prompts;
    DialogAnswer<QDialog> answer([&](QDialog* dialog) {
        prompts.append(dialog->metaObject()->className());
        auto* halt = dialog->findChild<QPushButton*>("pushButton_DialogHalt");
        QVERIFY(halt);
        if (qobject_cast<QInputDialog*>(dialog))
            QTest::mouseClick(halt, Qt::LeftButton);
        else
            static_cast<QMessageBox*>(dialog)->button(QMessageBox::Ok)->click();
    });
    clearRecords();
    m_tool->click("pushButton_BasicRecalibrate");
    QTRY_COMPARE(state(), "Halted");
    QTRY_COMPARE(prompts.size(), 2); // the second one was the last
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(frames({0x43}), QStringList());
}

void TestHalt::focusInPlay()
{
    open({"--node", "2", "--speed", "4"});
    m_tool->showPage(SequenceTab);
    auto* table = m_tool->find<QTableWidget>("tableWidget_Seq");
    for (const int row : {0, 1}) {
        m_tool->click("pushButton_SeqInsert");
        QTRY_VERIFY(table->currentRow() == row && m_tool->enabled("pushButton_SeqRun"));
    }
    table->setCurrentCell(0, 0);
    QTRY_VERIFY(m_tool->enabled("pushButton_SeqRun"));
    auto* stop = m_tool->find<QPushButton>("pushButton_SeqStop");
    QVERIFY(!stop->hasFocus()); // it was a play for edit
    m_tool->setField("lineEdit_SeqDelay", "60000");
    emit m_tool->find<QLineEdit>("lineEdit_SeqDelay")->editingFinished();
    m_tool->click("pushButton_SeqRun");
    QTRY_VERIFY(stop->isEnabled());
    QCOMPARE(m_tool->window()->focusWidget(), stop);
    QTest::keyClick(stop, Qt::Key_Space);
    QTRY_VERIFY(!stop->isEnabled());
    QCOMPARE(m_tool->window()->focusWidget(), table);
    QTest::keyClick(table, Qt::Key_Space);
    QTest::qWait(50);
    QVERIFY(!stop->isEnabled()); // does not start it again
}

void TestHalt::exit_data()
{
    QTest::addColumn<QString>("hand");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("hangs");
    QTest::addColumn<bool>("isLater"); ///< after the hand has not confirmed the halt
    QTest::newRow("Exit, SerialCtrl") << "2" << false << false << false;
    QTest::newRow("closed window, SerialCtrl") << "2" << true << false << false;
    QTest::newRow("Exit, Modbus") << "2:modbus" << false << false << false;
    QTest::newRow("silent hand") << "2" << true << true << false;
    QTest::newRow("between two tries") << "2" << false << true << true;
    QTest::newRow("all hands") << "255" << false << true << true;
}

/// A halt that was pressed during an exchange reaches the hand before the program ends.
void TestHalt::exit()
{
    QFETCH(QString, hand);
    QFETCH(bool, closes);
    QFETCH(bool, hangs);
    QFETCH(bool, isLater);
    if (hangs)
        expectTimeouts(200);
    open({"--node", hand == "255" ? "2" : hand, "--speed", "0.1"});
    if (hand == "255") {
        m_tool->click("pushButton_RefreshPorts");
        openAnyNode();
    }
    m_tool->showPage(RunTab);
    moveFinger(1);
    QTRY_VERIFY(idle());
    clearRecords();
    qsizetype tries = 0;
    QTimer::singleShot(0, m_tool->window(), [&] {
        if (isLater) {
            command("hang");
            press();
            const bool isShown = QTest::qWaitFor(
                [this] { return state().contains("not confirmed") && idle(); }, ConditionMs);
            tries = frames({FingerStop}).size();
            m_tool->trigger("action_Exit");
            QVERIFY(isShown);
            return;
        }
        duringExchange([&] {
            if (hangs)
                command("hang");
            press();
            if (!closes)
                m_tool->trigger("action_Exit");
            for (int i = 0; closes && i < 2; ++i) { // a second time changes nothing
                m_tool->window()->close();
                QVERIFY(m_tool->window()->isVisible());
                QCOMPARE(frames({FingerStop}), QStringList());
            }
        });
        m_tool->click("pushButton_BasicReloadBasic");
    });
    QCOMPARE(errorsUntilEnd().contains("Switch the power off."), hangs);
    QVERIFY(idle());
    QVERIFY(frames({FingerStop}).size() > tries || hand != "2");
    if (hangs) // it ends all the same
        return;
    const bool modbus = hand.contains("modbus");
    QCOMPARE(frames({FingerStop}).size(), modbus ? 0 : 1);
    QCOMPARE(modbus ? writes().size() : motions().size(), modbus ? 4 : 2);
    QTRY_COMPARE(m_hand->command("get 2 moving 1"), "ok 0");
    QVERIFY(positions()[1] < 60'000); // it has not gone on to its target
}

VANTO_TEST(TestHalt)

} // namespace vanto

#include "tst_halt.moc"
