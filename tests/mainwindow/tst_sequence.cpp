#include "devicebar.h"
#include "pageindex.h"
#include "sequencepage.h"
#include "sequencetest.h"

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QRandomGenerator>
#include <QSlider>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

namespace vanto
{

namespace
{
constexpr const char* TwoSteps = R"({"version":1,"position_type":"position","sequences":[
 {"delay":0,"position":[1000,2000,3000,4000,5000,6000],"speed":[255,254,253,252,251,250]},
 {"delay":40,"position":[10,20,30,40,50,60],"speed":[1,2,3,4,5,255]}]})";
const QStringList StretchedPose{"4c 000000ff", "4c 010000ff", "4c 020000ff", "4c 030000ff",
                                "4c 040000ff"};
const QStringList FirstStep{"4c 00e803ff", "4c 01d007fe", "4c 02b80bfd",
                            "4c 03a00ffc", "4c 048813fb", "4c 057017fa"};
} // namespace

/// The Sequence tab in the real window.
class TestSequence : public SequenceTest
{
    Q_OBJECT
private slots:
    void init();
    void insertReadsPose();
    void enabledControls();
    void selectingPlaysForEdit();
    void runs_data();
    void runs();
    void nothingElseMovesFingers();
    void moveAndDeleteRows();
    void editors_data();
    void editors();
    void sliderReleaseIsStored();
    void typedTextBelongsToItsRow();
    void loadAndSave();
    void shortSteps();
    void stopEndsEverything_data()
    {
        addTextRows({"way"}, {{"Stop"}, {"page"}, {"port"}, {"device"}, {"Refresh"}, {"update"}});
    }
    void stopEndsEverything();
    void staleRequests_data();
    void staleRequests();
    void stopDuringPose();

private:
    QTabWidget* pages() const { return m_tool->find<QTabWidget>("tabWidget"); }
    QString row(int row) const;
    void select(int row) const;
};

void TestSequence::init()
{
    if (QTest::currentTestFunction() == QString("stopEndsEverything"))
        expectTimeouts();
    open({"--node", "2", "--speed", "50"});
    pages()->setCurrentIndex(SequenceTab);
    clearRecords();
}

QString TestSequence::row(int row) const
{
    QStringList cells;
    for (int column = 0; column < 6; ++column)
        cells.append(table()->item(row, column) ? table()->item(row, column)->text() : "-");
    return cells.join(' ');
}

/// Selects the row as a click does; returns when the hand has taken the pose of the step.
void TestSequence::select(int row) const
{
    table()->setCurrentCell(row, 0);
    QTRY_VERIFY(table()->isEnabled());
    m_hand->clearTrace();
}

void TestSequence::insertReadsPose()
{
    command("set 2 position 1 4660");
    m_tool->click("pushButton_SeqInsert");
    QCOMPARE(row(0).section(' ', 1, 2).section(' ', 1), "4660");
    QCOMPARE(motions(), QStringList()); // not before the row is selected
    QTRY_COMPARE(motions().size(), 11);
    QCOMPARE(motions().first(5), StretchedPose);
    QCOMPARE(motions()[6], "4c 013412ff");
    QTRY_COMPARE(m_tool->field("lineEdit_SeqPos1"), "4660");
    QCOMPARE(m_tool->field("lineEdit_SeqSpeed5") + ' ' + m_tool->field("lineEdit_SeqDelay"),
             "255 0");
    m_tool->click("pushButton_SeqInsert");
    QTRY_COMPARE(table()->currentRow(), 1);
    table()->setCurrentCell(-1, -1);
    QTRY_VERIFY(m_tool->enabled("pushButton_SeqInsert"));
    command("fault refuse command=0x0f"); // without a message
    m_tool->clearShownTexts();
    m_tool->click("pushButton_SeqInsert");
    QCOMPARE(row(1), "0 0 0 0 0 0");       // after the first row when none is current
    m_tool->click("pushButton_SeqDelete"); // so that the delayed selection finds no row
    QCOMPARE(shown(), QStringList());
}

void TestSequence::enabledControls()
{
    const QStringList controls{
        "verticalSlider_SeqPos3", "lineEdit_SeqDelay",  "tableWidget_Seq",
        "pushButton_SeqInsert",   "pushButton_SeqLoad", "pushButton_SeqSave",
        "pushButton_SeqRun",      "pushButton_SeqStop", "comboBox_SeqPosOrAngle"};
    const auto enabled = [&] {
        QString marks;
        for (const QString& name : controls)
            marks += m_tool->enabled(name) ? '1' : '0';
        return marks + (m_tool->find<QLineEdit>("lineEdit_SeqSpeed2")->isReadOnly() ? 'r' : 'w');
    };
    QCOMPARE(enabled(), "001110001r"); // empty
    load(TwoSteps);
    QCOMPARE(enabled(), "001111100r"); // no row
    select(0);
    QCOMPARE(enabled(), "111111100w"); // a row
    command("set 2 position 0 60000");
    m_tool->setField("lineEdit_SeqDelay", "60000");
    emit m_tool->find<QLineEdit>("lineEdit_SeqDelay")->editingFinished();
    m_tool->click("pushButton_SeqRun");
    QCOMPARE(enabled(), "000000010r"); // playing
    m_tool->click("pushButton_SeqStop");
    QCOMPARE(enabled(), "111111100w");
    m_tool->window()->closeDevice();
    m_tool->find<SequencePage>("tab_Sequence")->updateSequenceTab();
    QCOMPARE(enabled(), "000000000r"); // no device
    QVERIFY(m_tool->enabled("pushButton_SeqReadFromDev"));
}

void TestSequence::selectingPlaysForEdit()
{
    // The player knows the hand as soon as it is open.
    const SequenceData wave{.sequences = {{{1}, {2}, 0}}};
    QVERIFY(m_tool->window()->findChild<SequencePlayer*>()->play(wave, 0, 0, false));
    QCOMPARE(motions(), QStringList{"4c 00010002"});
    clearRecords();
    m_tool->find<SequencePage>("tab_Sequence")->updateSequenceTab();
    load(TwoSteps);
    table()->setFocus();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, {}, /*autorep=*/true);
    QApplication::sendEvent(table(), &held); // pressed before the page was shown
    QCOMPARE(table()->currentRow(), -1);
    QTest::keyClick(table(), Qt::Key_Down);
    QTRY_COMPARE(motions().size(), 11);
    QCOMPARE(motions(), StretchedPose + FirstStep);
    QTRY_COMPARE(m_tool->field("lineEdit_SeqPos4"), "5000");
    QVERIFY(table()->hasFocus());
    QTest::keyClick(table(), Qt::Key_Up); // there is no row above
    QCOMPARE(motions().size(), 11);
    m_hand->clearTrace();
    const QPoint cell = table()->visualItemRect(table()->item(0, 0)).center();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell);
    QCOMPARE(motions(), FirstStep);
    QCOMPARE(frames({0x0F}), QStringList()); // sent once and not polled
}

void TestSequence::runs_data()
{
    QTest::addColumn<int>("current");
    QTest::newRow("no row") << -1;
    QTest::newRow("first") << 0;
    QTest::newRow("last starts at the top") << 1;
    QTest::newRow("middle") << 2;
}

void TestSequence::runs()
{
    QFETCH(int, current);
    QByteArray json = TwoSteps;
    if (current == 2) { // the second of three
        json.replace("\"sequences\":[",
                     R"("sequences":[{"position":[9,9,9,9,9,9],"speed":[9,9,9,9,9,9]},)");
        current = 1;
    }
    load(json);
    if (current >= 0)
        select(current);
    m_tool->click("pushButton_SeqRun");
    QTRY_VERIFY(!m_tool->enabled("pushButton_SeqStop"));
    QCOMPARE(motions().size(), 12);
    QCOMPARE(motions().first(6), FirstStep);
    QCOMPARE(motions().constLast(), "4c 053c00ff");
    QCOMPARE(table()->currentRow(), table()->rowCount() - 1);
    QCOMPARE(m_tool->field("lineEdit_SeqPos5"), "60"); // of the current row
}

void TestSequence::nothingElseMovesFingers()
{
    load(TwoSteps);
    m_tool->devices()->setFocus();
    m_tool->find<DeviceBar>("deviceBar")->openCurrentDevice();
    QVERIFY(m_tool->devices()->hasFocus());
    clearRecords();
    pages()->setCurrentIndex(0);
    pages()->setCurrentIndex(SequenceTab);
    QVERIFY(table()->hasFocus());
    for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp,
                           Qt::Key_PageDown, Qt::Key_1, Qt::Key_F2, Qt::Key_Tab, Qt::Key_Backtab}) {
        for (const bool held : {false, true}) {
            table()->setFocus();
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, {}, held);
            QApplication::sendEvent(table(), &press);
            QCOMPARE(table()->hasFocus(), key != Qt::Key_Tab && key != Qt::Key_Backtab);
        }
    }
    for (const char* button : {"ReadFromDev", "WriteToDev", "RunOnDev", "StopOnDev", "Delete"})
        m_tool->click(QString("pushButton_Seq") + button);
    QCOMPARE(table()->currentRow(), -1);
    QCOMPARE(frames(), QStringList());
}

void TestSequence::moveAndDeleteRows()
{
    load(TwoSteps);
    select(0);
    m_tool->click("pushButton_SeqDown");
    QCOMPARE(row(1), "6000 1000 2000 3000 4000 5000");
    QTRY_COMPARE(motions().size(), 11);
    QCOMPARE(motions().last(6), FirstStep); // the same step is selected
    QTRY_VERIFY(table()->isEnabled());
    m_hand->clearTrace();
    m_tool->click("pushButton_SeqDown"); // already the last
    QCOMPARE(motions(), QStringList());
    m_tool->click("pushButton_SeqUp");
    QTRY_COMPARE(motions().size(), 11);
    QCOMPARE(row(1), "60 10 20 30 40 50");
    QTRY_COMPARE(m_tool->field("lineEdit_SeqPos0"), "1000");
    QTRY_VERIFY(table()->isEnabled());
    m_hand->clearTrace();
    m_tool->click("pushButton_SeqDelete");
    QTRY_COMPARE(motions().size(), 11);
    QCOMPARE(motions()[5], "4c 000a0001"); // of the row that becomes current
    QCOMPARE(table()->rowCount(), 1);
}

void TestSequence::editors_data()
{
    addTextRows({"field", "typed", "shown", "stored"},
                {{"Delay", "70000", "65535", "65535"},
                 {"Delay", "-3", "0", "0"},
                 {"Delay", "x", "x", "0"},
                 {"Delay", "99999999999", "99999999999", "0"},
                 {"Delay", "250", "250", "250"},
                 {"Speed4", "0", "1", "1"},
                 {"Speed4", "300", "255", "255"},
                 {"Speed4", "", "1", "1"},
                 {"Speed4", "17", "17", "17"}});
}

void TestSequence::editors()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    load(TwoSteps);
    select(0);
    auto* edit = m_tool->find<QLineEdit>("lineEdit_Seq" + field);
    edit->setFocus();
    edit->setText(typed);
    QTest::keyClick(edit, Qt::Key_Return);
    QTEST(edit->text(), "shown");
    select(1);
    table()->setCurrentCell(0, 0);
    m_tool->click("pushButton_SeqStop"); // does not wait for the delay of the step
    QTEST(edit->text(), "stored");
}

void TestSequence::sliderReleaseIsStored()
{
    load(TwoSteps);
    select(0);
    auto* slider = m_tool->find<QSlider>("verticalSlider_SeqPos2");
    slider->setSliderDown(true);
    slider->setSliderPosition(30000);
    QCOMPARE(m_tool->field("lineEdit_SeqPos2"), "30000");
    QCOMPARE(motions(), QStringList());
    slider->setSliderDown(false);
    QCOMPARE(frames({0x4C, 0x0B}), (QStringList{"4c 023075fd", "0b 02"}));
    QCOMPARE(row(0), "6000 1000 2000 30000 4000 5000");

    for (const auto& [code, operation] : {std::pair{"0x4c", "set"}, {"0x0b", "get"}}) {
        command(QString("fault refuse error=0x07 command=") + code);
        slider->setSliderDown(true);
        slider->setSliderPosition(50000);
        slider->setSliderDown(false);
        QCOMPARE(m_tool->errorText(),
                 QString("%1FingerPos(0x02, ...) returned 0xff (sub err 07)").arg(operation));
        QCOMPARE(row(0), "6000 1000 2000 30000 4000 5000");
    }
}

/// QLineEdit also emits editingFinished() when it is disabled.
void TestSequence::typedTextBelongsToItsRow()
{
    load(TwoSteps);
    select(0);
    auto* delay = m_tool->find<QLineEdit>("lineEdit_SeqDelay");
    delay->setFocus();
    delay->setText("777");
    select(1); // not by a click, which would take the focus first
    QCOMPARE(delay->text(), "40");
    select(0);
    QCOMPARE(delay->text(), "777");
}

void TestSequence::loadAndSave()
{
    load(R"({"version":1,"position_type":"angle","sequences":[
        {"position":[-1000,9999,2,3,4,-200],"speed":[1,2,3,4,5,6],"delay":7}]})");
    QCOMPARE(m_tool->find<QComboBox>("comboBox_SeqPosOrAngle")->currentIndex(), 1);
    QCOMPARE(m_tool->find<QLabel>("label_SeqTicksOrDegree")->text(), "degree");
    QCOMPARE(m_tool->find<QSlider>("verticalSlider_SeqPos1")->minimum(), 9100);
    select(0);
    QCOMPARE(m_tool->field("lineEdit_SeqPos0"), "-10.00");
    load(R"({"version":2})");
    QCOMPARE(row(0), "-200 -1000 9999 2 3 4");
    QCOMPARE(shown(), QStringList());

    DialogAnswer<QFileDialog> answer([](QFileDialog* dialog) {
        chooseFile(*dialog, QDir::current().absoluteFilePath("saved")); // without the extension
    });
    m_tool->click("pushButton_SeqSave");
    QFile saved("saved.json");
    QVERIFY(saved.open(QFile::ReadOnly));
    QVERIFY(saved.readAll().contains("\"position_type\": \"angle\""));
    m_hand->clearTrace();
    m_tool->click("pushButton_SeqRun"); // the only step: sent once
    QCOMPARE(frames().size(), 6);
    QCOMPARE(frames().constFirst(), "4d 0018fc01");
}

void TestSequence::shortSteps()
{
    load(
        R"({"version":1,"position_type":"position","sequences":[{"position":[5,6],"speed":[9]}]})");
    QCOMPARE(row(0), "- 5 6 - - -");
    select(0);
    QCOMPARE(m_tool->field("lineEdit_SeqPos1") + '|' + m_tool->field("lineEdit_SeqPos2") + '|' +
                 m_tool->field("lineEdit_SeqSpeed1"),
             "6||");
    QTest::keyClick(m_tool->find<QLineEdit>("lineEdit_SeqSpeed1"), Qt::Key_Return); // no value
    m_tool->click("pushButton_SeqRun");
    QCOMPARE(motions(), QStringList{"4c 00050009"});
    load(R"({"version":1,"position_type":"position","sequences":[{"position":[5,6]},
        {"position":[1,2,3,4,5,6]}]})");
    select(0);
    m_tool->click("pushButton_SeqDown");
    QCOMPARE(row(0) + '|' + row(1), "6 1 2 3 4 5|- 5 6 - - -");
}

/// Acts at a random moment of a run, possibly while a step is being sent.
void TestSequence::stopEndsEverything()
{
    QFETCH(QString, way);
    command("fault late ms=15 count=0"); // makes exchanges longer
    load(TwoSteps);
    DialogAnswer<QInputDialog> updateSource([](auto* dialog) { dialog->reject(); });
    const int wait = QRandomGenerator::global()->bounded(300);
    bool acted = false;
    QTimer::singleShot(wait, m_tool.get(), [&] {
        if (way == "Stop")
            m_tool->find<QPushButton>("pushButton_SeqStop")->click();
        else if (way == "page")
            pages()->setCurrentIndex(1);
        else if (way == "port")
            m_tool->ports()->setCurrentIndex(-1);
        else if (way == "device")
            m_tool->devices()->setCurrentIndex(-1), m_tool->devices()->setCurrentIndex(0);
        else if (way == "update")
            m_tool->trigger("action_Force_Update");
        else
            m_tool->click("pushButton_RefreshPorts");
        m_hand->clearTrace();
        acted = true;
    });
    m_tool->click("pushButton_SeqRun");
    QTRY_VERIFY(acted && idle());
    // A request that was in progress may be traced afterwards.
    QVERIFY2(motions().size() <= 1, qPrintable(QString::number(wait) + motions().join('|')));
    QVERIFY(!m_tool->enabled("pushButton_SeqStop"));
    QTRY_VERIFY(idle());
    m_hand->clearTrace();
    QTest::qWait(150); // longer than a poll and the delay of a step, which send nothing
    QCOMPARE(motions(), QStringList());
}

void TestSequence::staleRequests_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("sent");
    QTest::addColumn<QString>("rows");
    const QString released = "6000 1000 2000 30000 4000 5000";
    QTest::newRow("deleted, the other row plays") << "pushButton_SeqDelete" << 12 << released + '|';
    QTest::newRow("page left") << "" << 1 << released + "|60 10 20 30 40 50";
    QTest::newRow("other row") << "row" << 12 << released + "|60 10 20 30 40 50";
    // The released value belongs to the step, even if its row moves.
    QTest::newRow("moved") << "pushButton_SeqUp" << 12 << "60 10 20 30 40 50|" + released;
}

/// While the release of a slider is sent, a row is selected, and then the change is made.
void TestSequence::staleRequests()
{
    QFETCH(QString, change);
    QFETCH(int, sent);
    load(TwoSteps);
    select(0);
    command("fault late ms=15 count=0");
    duringExchange([&] {
        table()->setCurrentCell(1, 0);
        if (change.isEmpty()) {
            pages()->setCurrentIndex(0);
            pages()->setCurrentIndex(SequenceTab);
        } else if (change == "row") {
            table()->setCurrentCell(0, 0);
        } else {
            m_tool->click(change);
        }
    });
    auto* slider = m_tool->find<QSlider>("verticalSlider_SeqPos2");
    slider->setSliderDown(true);
    slider->setSliderPosition(30000);
    slider->setSliderDown(false);
    QTRY_VERIFY(motions().size() >= sent && table()->isEnabled());
    QTest::qWait(50); // nothing else is sent
    QCOMPARE(motions().size(), sent);
    QTEST(row(0) + '|' + (table()->rowCount() > 1 ? row(1) : QString()), "rows");
    if (change == "row")
        QCOMPARE(motions().constLast(), FirstStep.constLast());
}

void TestSequence::stopDuringPose()
{
    load(TwoSteps);
    select(0);
    command("fault late ms=30 count=0");
    duringExchange([&] { m_tool->click("pushButton_SeqStop"); });
    table()->setCurrentCell(1, 0);
    QVERIFY(motions().size() < 5);
    QCOMPARE(m_tool->field("lineEdit_SeqPos0"), "10"); // of the current row
}

VANTO_TEST(TestSequence)

} // namespace vanto

#include "tst_sequence.moc"
