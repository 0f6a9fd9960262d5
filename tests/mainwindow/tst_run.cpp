#include "handtest.h"
#include "runpage.h"
#include "testmain.h"

#include <QLabel>
#include <QSlider>
#include <QTabWidget>
#include <QTimer>
#include <QWheelEvent>

namespace vanto
{

/// The Run and Force tabs in the real window.
class TestRun : public HandTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void init();
    void modes();
    void releasesAreSentOnePerTick();
    void leavingDiscardsPendingMotions();
    void setSendsImmediately_data();
    void setSendsImmediately();
    void readBacks_data();
    void readBacks();
    void setDuringTick();
    void modeChangeMovesNothing();
    void readBackKeepsHeldSlider();
    void failures();
    void clicksReachSilentHand();
    void dragWheelAndKeys();
    void forcePage();

private:
    QSlider* slider(int finger) const;
    void release(int finger, int value) const;
    void setMode(int mode) const;
    QStringList motions() const { return frames({0x4C, 0x4D}); }
};

void TestRun::init()
{
    const QString test = QTest::currentTestFunction();
    if (test == "failures" || test == "clicksReachSilentHand" ||
        test == "leavingDiscardsPendingMotions")
        expectTimeouts();
    open();
    m_tool->showPage(2);
    clearRecords();
}

QSlider* TestRun::slider(int finger) const
{
    return m_tool->find<QSlider>(QString("verticalSlider_RunPos%1").arg(finger));
}

/// What a drag does: moves the slider and releases it.
void TestRun::release(int finger, int value) const
{
    slider(finger)->setSliderDown(true);
    slider(finger)->setSliderPosition(value);
    slider(finger)->setSliderDown(false);
}

void TestRun::setMode(int mode) const
{
    m_tool->find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(mode);
    QTRY_VERIFY(slider(0)->isEnabled());
    m_tool->clearShownTexts();
}

void TestRun::modes()
{
    command("set 2 position 1 32768");
    m_tool->find<RunPage>("tab_Run")->reloadRunInfo();
    QTRY_COMPARE(m_tool->field("lineEdit_RunPos1"), "32768");
    QCOMPARE(slider(1)->value(), 32768);
    QCOMPARE(slider(1)->maximum(), 65535);
    QCOMPARE(m_tool->find<QLabel>("label_RunTicksOrDegree")->text(), "ticks");

    m_tool->find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(1);
    QTRY_COMPARE(m_tool->field("lineEdit_RunPos1"), "135.96");
    QCOMPARE(slider(1)->value(), 13596);
    QCOMPARE(slider(5)->minimum(), -200);
    QCOMPARE(slider(5)->maximum(), 9200);
    QCOMPARE(slider(0)->minimum(), -1269);
    QCOMPARE(m_tool->find<QLabel>("label_RunTicksOrDegree")->text(), "degree");
    QVERIFY(shown().contains("Running info loaded"));
    QCOMPARE(m_tool->field("lineEdit_RunSpeed1"), "255");
    QCOMPARE(motions(), QStringList());
}

void TestRun::releasesAreSentOnePerTick()
{
    release(0, 1000);
    release(1, 2000);
    m_tool->setField("lineEdit_RunSpeed1", "300");
    release(1, 3000);
    QTRY_COMPARE(motions(), (QStringList{"4c 00e803ff", "4c 01d007ff", "4c 01b80b2c"}));
    // All currents are read between two of them.
    const QString kinds =
        frames({0x4C, 0x06}).replaceInStrings(QRegularExpression(" .*"), "").join(' ');
    QVERIFY2(QRegularExpression("4c( 06){6,} 4c( 06){6,} 4c").match(kinds).hasMatch(),
             qPrintable(kinds));
}

void TestRun::leavingDiscardsPendingMotions()
{
    release(0, 1000);
    release(0, 2000);
    auto* tabs = m_tool->find<QTabWidget>("tabWidget");
    tabs->setCurrentIndex(0);
    tabs->setCurrentIndex(2);
    QTest::qWait(250); // two ticks, which send nothing
    QCOMPARE(motions(), QStringList());
    release(2, 5);
    m_tool->click("pushButton_RefreshPorts");
    QTest::qWait(250); // nothing is sent to a closed device
    QCOMPARE(motions(), QStringList());
}

void TestRun::setSendsImmediately_data()
{
    addTextRows({"mode", "typed", "speed", "sent"},
                {{"0", "1000", "255", "4c 04e803ff"},
                 {"0", "", "", "4c 04000000"},
                 {"0", "70000", "256", "4c 04701100"},
                 {"0", "-1", "-1", "4c 04ffffff"},
                 {"0", "5000000000", "99999999999", "4c 04000000"},
                 {"1", "120.5", "7", "4d 04122f07"},
                 {"1", "120,5", "7", "4d 04122f07"},
                 {"1", "x", "1", "4d 04000001"},
                 {"1", "1e9", "1", "4d 04ff7f01"},
                 {"1", "nan", "1", "4d 04000001"}});
}

void TestRun::setSendsImmediately()
{
    QFETCH(QString, mode);
    QFETCH(QString, typed);
    QFETCH(QString, speed);
    setMode(mode.toInt());
    m_tool->setField("lineEdit_RunPos4", typed);
    m_tool->setField("lineEdit_RunSpeed4", speed);
    m_tool->click("pushButton_RunSetPos4");
    QTRY_COMPARE(motions().size(), 1);
    QTEST(motions().constFirst(), "sent");
}

void TestRun::readBacks_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("bySet");
    QTest::addColumn<bool>("fieldFollows");
    QTest::addColumn<bool>("sliderFollows");
    QTest::newRow("timer, position") << 0 << false << true << false;
    QTest::newRow("timer, angle") << 1 << false << true << true;
    QTest::newRow("Set, position") << 0 << true << false << true;
    QTest::newRow("Set, angle") << 1 << true << true << true;
}

void TestRun::readBacks()
{
    QFETCH(int, mode);
    QFETCH(bool, bySet);
    setMode(mode);
    // The reply to the motion is late; before it arrives the target changes.
    command(QString("fault late ms=60 command=0x4%1").arg(mode == 0 ? 'c' : 'd'));
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        if (motions().isEmpty())
            return;
        timer.stop();
        command("set 2 target 2 32768");
    });
    timer.start(3);
    if (bySet) {
        m_tool->setField("lineEdit_RunPos2", mode == 0 ? "40000" : "150.00");
        m_tool->click("pushButton_RunSetPos2");
    } else {
        release(2, mode == 0 ? 40000 : 15000);
    }
    QTRY_VERIFY(!timer.isActive());
    QTRY_VERIFY(!frames({0x0B, 0x0C}).isEmpty());
    QTRY_VERIFY(idle());
    // Field and slider show the requested value until the read-back; Set does not move the slider.
    const QString back = mode == 0 ? "32768" : "134.05";
    const int backValue = mode == 0 ? 32768 : 13405;
    QFETCH(bool, fieldFollows);
    QFETCH(bool, sliderFollows);
    if (fieldFollows)
        QTRY_COMPARE(m_tool->field("lineEdit_RunPos2"), back);
    if (sliderFollows)
        QTRY_COMPARE(slider(2)->value(), backValue);
    QCOMPARE(m_tool->field("lineEdit_RunPos2") == back, fieldFollows);
    QCOMPARE(slider(2)->value() == backValue, sliderFollows);
}

void TestRun::setDuringTick()
{
    command("fault late count=0 ms=20"); // a whole tick takes 120 ms
    m_tool->setField("lineEdit_RunPos1", "1111");
    QTRY_VERIFY(!m_hand->requests().isEmpty());
    const auto before = m_hand->requests().size();
    m_tool->click("pushButton_RunSetPos1");
    m_tool->setField("lineEdit_RunPos1", "2222"); // the value at the click counts
    QTRY_COMPARE(motions(), QStringList{"4c 015704ff"});
    // The tick ends after the current exchange, which the trace may not have contained before.
    QVERIFY(frames().mid(before, 2).contains("4c 015704ff"));
    QTRY_VERIFY(!m_tool->field("lineEdit_RunCurrent5").isEmpty());
    QCOMPARE(shown(), QStringList());
}

/// Until the reload, fields and sliders show the old unit.
void TestRun::modeChangeMovesNothing()
{
    command("fault late count=0 ms=30");
    m_tool->setField("lineEdit_RunPos1", "30000");
    slider(2)->setSliderDown(true);
    slider(2)->setSliderPosition(20000);
    duringExchange([&] { // of a tick, so that the change is queued
        m_tool->find<QComboBox>("comboBox_RunPosOrAngle")->setCurrentIndex(1);
        m_tool->click("pushButton_RunSetPos1");
    });
    QTRY_COMPARE(slider(2)->maximum(), 17852);
    QTRY_VERIFY(slider(2)->isEnabled());
    QTRY_COMPARE(motions(), QStringList{"4c 013075ff"});
    QTest::qWait(150); // the held slider does not count as released
    QCOMPARE(motions().size(), 1);
}

void TestRun::readBackKeepsHeldSlider()
{
    setMode(1);
    release(2, 10000);
    slider(2)->setSliderDown(true);
    slider(2)->setSliderPosition(12000);
    QTRY_COMPARE(frames({0x0C}).size(), 1); // the read-back
    QTRY_VERIFY(idle());
    slider(2)->setSliderDown(false);
    QTRY_COMPARE(motions(), (QStringList{"4d 021027ff", "4d 02e02eff"}));
}

void TestRun::failures()
{
    const QString refused = "(0x02, ...) returned 0xff (sub err 21)";
    command("fault refuse command=0x4c");
    m_tool->click("pushButton_RunSetPos0");
    QTRY_COMPARE(m_tool->errorText(), "setFingerPos" + refused);
    command("fault refuse command=0x0b");
    m_tool->click("pushButton_RunSetPos0");
    QTRY_COMPARE(m_tool->errorText(), "getFingerpos" + refused);
    command("fault refuse command=0x0b");
    release(0, 99);
    QTRY_COMPARE(m_tool->errorText(), "getFingerPos" + refused);
    command("fault drop command=0x4c");
    release(0, 98);
    QTRY_COMPARE(m_tool->errorText(), "setFingerPos(0x02, ...) returned 0x03 (sub err 00)");
    QTest::qWait(150); // a failed command is not repeated
    QCOMPARE(motions().size(), 4);
}

void TestRun::clicksReachSilentHand()
{
    m_hand->command("hang");
    QTRY_VERIFY(!m_tool->errorText().isEmpty());
    qsizetype before = -1;
    duringExchange([&] {
        m_tool->click("pushButton_RunSetPos3");
        before = m_hand->requests().size();
    });
    QTRY_VERIFY(before >= 0);
    QTRY_COMPARE(motions().size(), 1);
    // At most the request that was in progress precedes it.
    QVERIFY(frames().mid(before, 2).contains(motions().constFirst()));
    m_tool->showPage(0);
    QTRY_VERIFY(idle());
    m_hand->clearTrace();
    QTest::qWait(150); // other pages send nothing
    QCOMPARE(m_hand->requests().size(), 0);
}

/// Only a release sends a motion; until then the field shows a preview.
void TestRun::dragWheelAndKeys()
{
    slider(3)->setSliderDown(true);
    for (int value = 0; value < 40000; value += 10000)
        slider(3)->setSliderPosition(value);
    QCOMPARE(m_tool->field("lineEdit_RunPos3"), "30000");
    const QPointF at = slider(0)->rect().center();
    QWheelEvent wheel(at, slider(0)->mapToGlobal(at), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(slider(0), &wheel);
    QCOMPARE(slider(0)->sliderPosition(), 0);
    QTest::keyClick(slider(0), Qt::Key_PageUp);
    QVERIFY(slider(0)->sliderPosition() > 0);
    QCOMPARE(m_tool->field("lineEdit_RunPos0"), QString::number(slider(0)->sliderPosition()));
    QTest::qWait(250); // two ticks, which send nothing
    QCOMPARE(motions(), QStringList());
    QTest::keyClick(slider(0), Qt::Key_Return);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(slider(0), &repeated);
    QTRY_COMPARE(motions().size(), 1);
    QTest::qWait(150); // the repeated key sends nothing
    QCOMPARE(motions().size(), 1);
}

void TestRun::forcePage()
{
    m_tool->showPage(3);
    QTRY_VERIFY(idle());
    m_hand->clearTrace();
    QTest::ignoreMessage(QtDebugMsg, "MainWindow::updateForce()");
    QTest::qWait(250); // two ticks, which send nothing
    QCOMPARE(m_hand->requests().size(), 0);
}

VANTO_TEST(TestRun)

} // namespace vanto

#include "tst_run.moc"
