#include "handtest.h"
#include "messagelog.h"
#include "pageindex.h"
#include "sequencedraft.h"
#include "sequenceeditor.h"
#include "sequenceplayer.h"
#include "testmain.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QWheelEvent>

namespace vanto
{

namespace
{
constexpr int DraftMs = 20'000; ///< until a draft is on disk, on a busy machine
constexpr const char* ThreeSteps = R"({"version":1,"position_type":"position","sequences":[
 {"delay":1,"position":[1000,2000,3000,4000,5000,6000],"speed":[255,254,253,252,251,250]},
 {"delay":2,"position":[10,20,30,40,50,60],"speed":[1,2,3,4,5,255]},
 {"delay":3,"position":[7,7,7,7,7,7],"speed":[9,9,9,9,9,9]}]})";
const QStringList DataActions{
    "action_Undo",           "action_Redo",         "action_Cut_Steps",
    "action_Copy_Steps",     "action_Paste_Steps",  "action_Delete_Step",
    "action_Duplicate_Step", "action_Move_Step_Up", "action_Move_Step_Down"};
} // namespace

/// Editing a sequence without sending anything, and keeping unsaved work.
class TestSequenceEdit : public HandTest
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { close(); }
    void undoAndRedo();
    void returnSendsTheRow();
    void randomSession();
    void whenEnabled();
    void selectionOfSeveralRows();
    void clipboard();
    void typedValues_data();
    void typedValues();
    void previews();
    void fileAndState();
    void drafts();
    void repeatedRun();

private:
    QTableWidget* table() const { return m_tool->find<QTableWidget>("tableWidget_Seq"); }
    QAction* action(const QString& name) const { return m_tool->find<QAction>(name); }
    SequenceEditor* editor() const { return m_tool->window()->findChild<SequenceEditor*>(); }
    QByteArray json() const { return editor()->data().toJSON(); }
    /// The delays stand for the steps.
    QString delays() const;
    QStringList motions() const { return frames({0x4B, 0x4C, 0x4D, 0x4F, 0x50, 0x51}); }
    /// "01|1" if the first two rows are selected and the second is current.
    QString selected() const;
    QString line() const { return m_tool->find<QLabel>("label_SeqStep")->text(); }
    QStringList messages() const { return m_tool->window()->findChild<MessageLog*>()->lines(); }
    void load(const QByteArray& json, const QString& name = "given.json") const;
    void select(int row) const;
    void choose(const char* button, const QString& file) const;
    void clickRow(int row, Qt::KeyboardModifiers modifiers) const;
};

void TestSequenceEdit::init()
{
    open({"--node", "2", "--speed", "50"});
    m_tool->showPage(SequenceTab);
    m_tool->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tool->window()));
    load(ThreeSteps);
    clearRecords();
}

QString TestSequenceEdit::delays() const
{
    QString all;
    for (const SequenceDataItem& step : editor()->data().sequences)
        all += QString::number(step.delay);
    return all;
}

QString TestSequenceEdit::selected() const
{
    QString rows;
    for (int row = 0; row < table()->rowCount(); ++row)
        if (table()->selectionModel()->isRowSelected(row))
            rows += QString::number(row);
    return rows + '|' + QString::number(table()->currentRow());
}

void TestSequenceEdit::choose(const char* button, const QString& file) const
{
    DialogAnswer<QFileDialog> answer(
        [&](QFileDialog* dialog) { chooseFile(*dialog, QFileInfo(file).absoluteFilePath()); });
    DialogAnswer<QMessageBox> overwrite(
        [](QMessageBox* box) { box->button(QMessageBox::Yes)->click(); });
    m_tool->click(button);
    QCOMPARE(answer.count(), 1);
    m_tool->window()->activateWindow(); // the dialog was the active one
    QVERIFY(QTest::qWaitForWindowActive(m_tool->window()));
}

void TestSequenceEdit::load(const QByteArray& json, const QString& name) const
{
    QFile file(name);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(json);
    file.close();
    choose("pushButton_SeqLoad", name);
}

void TestSequenceEdit::select(int row) const
{
    table()->setCurrentCell(row, 0);
    QTRY_VERIFY(table()->isEnabled());
    table()->setFocus();
    m_hand->clearTrace();
}

void TestSequenceEdit::clickRow(int row, Qt::KeyboardModifiers modifiers) const
{
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, modifiers,
                      table()->visualItemRect(table()->item(row, 2)).center());
}

void TestSequenceEdit::undoAndRedo()
{
    QCOMPARE(action("action_Undo")->text(), "&Undo loading of given.json");
    select(2);
    m_tool->setField("lineEdit_SeqDelay", "9");
    emit m_tool->find<QLineEdit>("lineEdit_SeqDelay")->editingFinished();
    m_tool->setField("lineEdit_SeqSpeed4", "17");
    emit m_tool->find<QLineEdit>("lineEdit_SeqSpeed4")->editingFinished();
    emit m_tool->find<QLineEdit>("lineEdit_SeqSpeed4")->editingFinished(); // no change
    QCOMPARE(action("action_Undo")->text(), "&Undo speed of step 3");
    m_tool->click("pushButton_SeqUp");
    QCOMPARE(delays(), "192");
    QCOMPARE(action("action_Undo")->text(), "&Undo move of step 3");
    QTRY_VERIFY(table()->isEnabled());
    m_tool->click("pushButton_SeqDelete");
    QCOMPARE(delays(), "12");
    QTRY_VERIFY(table()->isEnabled());
    QCOMPARE(action("action_Undo")->text(), "&Undo delete of step 2");
    m_hand->clearTrace();

    QTest::keyClick(table(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(delays(), "192");
    QCOMPARE(table()->currentRow(), 1);
    QCOMPARE(m_tool->field("lineEdit_SeqDelay"), "9");
    QVERIFY(
        line().startsWith("Not sent; Return sends it. Step 2: delay 9 ms, speeds 9 9 9 9 17 9"));
    QCOMPARE(table()->verticalHeaderItem(1)->text(), "2 *");
    m_tool->trigger("action_Undo");
    QCOMPARE(delays(), "129");
    QCOMPARE(table()->currentRow(), 2);
    m_tool->trigger("action_Undo");
    QCOMPARE(m_tool->field("lineEdit_SeqSpeed4"), "9");
    m_tool->setField("lineEdit_SeqDelay", "77"); // typed, but not finished
    m_tool->find<QLineEdit>("lineEdit_SeqDelay")->setModified(true);
    m_tool->find<QLineEdit>("lineEdit_SeqDelay")->setFocus();
    m_tool->trigger("action_Undo"); // of what was typed
    QCOMPARE(delays(), "129");
    m_tool->trigger("action_Undo");
    QCOMPARE(delays(), "123");
    m_tool->trigger("action_Undo"); // of Load
    QCOMPARE(table()->rowCount(), 0);
    QVERIFY(!action("action_Undo")->isEnabled());
    for (int i = 0; i < 2; ++i)
        m_tool->trigger("action_Redo");
    QCOMPARE(delays(), "129");
    QCOMPARE(action("action_Redo")->text(), "&Redo delay of step 3");
    QCOMPARE(frames(), QStringList());
}

void TestSequenceEdit::returnSendsTheRow()
{
    command("set 2 position 0 60000");
    table()->setCurrentCell(2, 0);
    m_tool->click("pushButton_SeqStop"); // before the fingers are stretched
    QVERIFY(table()->verticalHeaderItem(2));
    m_hand->clearTrace();
    table()->setFocus();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, /*autorep=*/true);
    QApplication::sendEvent(table(), &held);
    QCOMPARE(frames(), QStringList());
    QTest::keyClick(table(), Qt::Key_Return);
    QCOMPARE(motions().size(), 6);
    QVERIFY(!table()->verticalHeaderItem(2));
    QTest::keyClick(table(), Qt::Key_Return);
    QCOMPARE(motions().size(), 6);
}

void TestSequenceEdit::randomSession()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    for (int i = 0; i < 400; ++i) {
        const int rows = table()->rowCount();
        if (rows > 50) {
            table()->selectAll();
            m_tool->trigger("action_Delete_Step");
        } else if (rows > 0 && random.bounded(4) == 0)
            clickRow(random.bounded(std::min(rows, 5)),
                     random.bounded(2) ? Qt::ShiftModifier : Qt::ControlModifier);
        m_tool->trigger(DataActions[random.bounded(DataActions.size())]);
        QCOMPARE(table()->rowCount(), editor()->data().sequences.size());
        for (int row = 0; row < table()->rowCount(); ++row)
            QCOMPARE(table()->item(row, 1)->text().toInt(),
                     editor()->data().sequences[row].position[0]);
    }
    const QByteArray last = json();
    int redone = 0;
    while (editor()->history().canRedo())
        m_tool->trigger("action_Redo"), ++redone;
    while (redone-- > 0)
        m_tool->trigger("action_Undo");
    QVERIFY2(json() == last, qPrintable(QString::number(seed)));
    const int undone = editor()->history().index();
    while (editor()->history().canUndo()) // of Load, too
        m_tool->trigger("action_Undo");
    QVERIFY2(json() == SequenceData().toJSON(), qPrintable(QString::number(seed)));
    while (editor()->history().index() < undone)
        m_tool->trigger("action_Redo");
    QVERIFY2(json() == last, qPrintable(QString::number(seed)));
    QCOMPARE(frames(), QStringList());
}

void TestSequenceEdit::whenEnabled()
{
    const auto enabled = [&] {
        QString marks;
        for (const QString& name : DataActions)
            marks += action(name)->isEnabled() ? '1' : '0';
        return marks + (action("action_Insert_Before")->isEnabled() ? '1' : '0');
    };
    QCOMPARE(enabled(), "1000100001"); // no row
    select(0);
    QCOMPARE(enabled(), "1011111111");
    m_tool->setField("lineEdit_SeqDelay", "60000");
    emit m_tool->find<QLineEdit>("lineEdit_SeqDelay")->editingFinished();
    select(1);
    table()->setCurrentCell(0, 0); // plays
    QCOMPARE(enabled(), "0000000000");
    QTRY_VERIFY(line().contains("s more. Stop ends it."));
    m_tool->click("pushButton_SeqStop");
    QCOMPARE(enabled(), "1011111111");
    m_tool->showPage(BasicTab);
    QCOMPARE(enabled(), "0000000000");
    m_tool->showPage(SequenceTab);
    QCOMPARE(enabled(), "1000100001");
    select(1);
    m_hand->clearTrace();
    m_tool->find<QSlider>("verticalSlider_SeqPos3")->setFocus();
    const QByteArray before = json();
    for (const auto key : {Qt::Key_D, Qt::Key_X, Qt::Key_V, Qt::Key_C})
        QTest::keyClick(m_tool->window()->focusWidget(), key, Qt::ControlModifier);
    QTest::keyClick(m_tool->window()->focusWidget(), Qt::Key_Delete);
    QCOMPARE(json(), before); // these keys are those of the table
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(delays(), "6000032");
    QTest::keyClick(table(), Qt::Key_Down, Qt::AltModifier); // already the last
    QTest::keyClick(table(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(delays(), "60000322");
    QCOMPARE(editor()->data().sequences[3], editor()->data().sequences[2]);
    QCOMPARE(frames(), QStringList());
    m_tool->trigger("action_Insert_Before");
    QTRY_COMPARE(motions().size(), 11); // selected as after Insert
    QCOMPARE(delays(), "600003202");
    QCOMPARE(table()->currentRow(), 3);
    QTRY_VERIFY(table()->isEnabled());
    m_tool->ports()->setCurrentIndex(-1);
    QCOMPARE(enabled(), "0000000000");
}

void TestSequenceEdit::selectionOfSeveralRows()
{
    clickRow(0, Qt::ShiftModifier); // no row is current
    clickRow(1, Qt::ShiftModifier);
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 2);
    QCOMPARE(table()->currentRow(), 1);
    QVERIFY(table()->isEnabled());
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 3);
    QTest::keyClick(table(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 2);
    clickRow(0, Qt::ControlModifier); // no longer selected
    clickRow(2, Qt::ControlModifier);
    m_tool->click("pushButton_SeqUp"); // both selected rows
    QCOMPARE(delays(), "231");
    m_tool->click("pushButton_SeqDelete");
    QCOMPARE(delays(), "1");
    QCOMPARE(action("action_Undo")->text(), "&Undo delete of 2 steps");
    m_tool->trigger("action_Undo");
    for (const int row : {2, 2, 0}) // the last selected row stays selected and current
        clickRow(row, Qt::ControlModifier);
    QCOMPARE(selected(), "0|0");
    clickRow(1, Qt::ControlModifier);
    clickRow(0, Qt::ControlModifier);
    QCOMPARE(selected(), "1|1");
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier}) {
        QTest::keyClick(table(), Qt::Key_Home, modifier);
        QCOMPARE(selected(), "01|0");
        QTest::keyClick(table(), Qt::Key_End, modifier);
        QCOMPARE(selected(), "12|2");
        QTest::keyClick(table(), Qt::Key_PageUp, modifier);
        QTest::keyClick(table(), Qt::Key_Down, modifier);
        QCOMPARE(selected(), "1|1");
    }
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                       table()->visualItemRect(table()->item(1, 2)).center());
    QTest::mouseClick(table()->verticalHeader()->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      {3, table()->rowViewportPosition(2) + 3});
    QTest::keyClick(table(), Qt::Key_Up, Qt::AltModifier | Qt::ShiftModifier);
    QCOMPARE(frames(), QStringList());
    clickRow(0, Qt::NoModifier);
    QTRY_COMPARE(motions().size(), 11);
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 1);
}

void TestSequenceEdit::clipboard()
{
    table()->selectAll();
    m_tool->trigger("action_Copy_Steps");
    SequenceData copied;
    QVERIFY(copied.fromJSON(QApplication::clipboard()->text().toUtf8()));
    QCOMPARE(copied, editor()->data());
    m_tool->trigger("action_Cut_Steps");
    QCOMPARE(table()->rowCount(), 0);
    m_tool->find<QComboBox>("comboBox_SeqPosOrAngle")->setCurrentIndex(1);
    m_tool->trigger("action_Paste_Steps"); // an empty sequence takes the steps' unit
    QCOMPARE(delays(), "123");
    QCOMPARE(m_tool->find<QComboBox>("comboBox_SeqPosOrAngle")->currentIndex(), 0);
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 3);
    m_tool->trigger("action_Paste_Steps"); // after the selection
    QCOMPARE(delays(), "123123");
    QCOMPARE(selected(), "345|3");
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(selected(), "34|4");
    m_tool->trigger("action_Undo");
    m_tool->trigger("action_Undo");
    QCOMPARE(m_tool->find<QComboBox>("comboBox_SeqPosOrAngle")->currentIndex(), 1);
    m_tool->trigger("action_Redo");
    copied.position_type = SequenceData::POS_TYPE_ANGLE;
    for (const QString& text : {QString::fromUtf8(copied.toJSON()), QString("secret")}) {
        m_tool->clearShownTexts();
        QApplication::clipboard()->setText(text);
        m_tool->trigger("action_Paste_Steps");
        QCOMPARE(shown().size(), 1);
        QCOMPARE(delays(), "123");
    }
    QCOMPARE(frames(), QStringList());
}

void TestSequenceEdit::typedValues_data()
{
    addTextRows({"typed", "shown", "sent", "left"}, {{"12345", "12345", "4c 023930fd", "12345"},
                                                     {"1,000", "3000", "", "3000"},
                                                     {"70000", "65535", "", "3000"},
                                                     {"-1", "0", "", "3000"},
                                                     {"x", "3000", "", "3000"},
                                                     {"", "3000", "", "3000"}});
}

void TestSequenceEdit::typedValues()
{
    QFETCH(QString, typed);
    auto* field = m_tool->find<QLineEdit>("lineEdit_SeqPos2");
    QVERIFY(field->isReadOnly());
    select(0);
    QVERIFY(!field->isReadOnly());
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, typed.isEmpty() ? "\b" : typed);
    QTest::keyClick(field, Qt::Key_Return);
    QTEST(field->text(), "shown");
    QTEST(motions().join('|'), "sent");
    table()->setFocus();
    QTEST(field->text(), "left");
    QCOMPARE(editor()->data().sequences[0].position[2], field->text().toInt());
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, "4");
    table()->setFocus(); // without Return
    QTEST(field->text(), "left");
    QTEST(motions().join('|'), "sent");
}

void TestSequenceEdit::previews()
{
    select(0);
    auto* slider = m_tool->find<QSlider>("verticalSlider_SeqPos2");
    slider->triggerAction(QSlider::SliderPageStepAdd); // as a click into the groove
    QVERIFY(m_tool->field("lineEdit_SeqPos2") != "3000");
    QVERIFY(line().startsWith("A value is not sent"));
    QCOMPARE(frames(), QStringList());
    select(1);
    select(0);
    QCOMPARE(slider->value(), 3000);
    QVERIFY(line().startsWith("Step 1"));
    m_tool->trigger("action_Duplicate_Step");
    clearRecords();
    slider->setSliderDown(true);
    slider->setSliderPosition(20000);
    m_tool->trigger("action_Undo"); // shows another step
    slider->setSliderDown(false);
    QCOMPARE(motions(), QStringList());
    select(0);
    command("fault refuse command=0x4c");
    slider->setSliderDown(true);
    slider->setSliderPosition(30000);
    slider->setSliderDown(false);
    QCOMPARE(slider->value(), 3000);
    QCOMPARE(m_tool->field("lineEdit_SeqPos2"), "3000");
}

void TestSequenceEdit::fileAndState()
{
    const auto* name = m_tool->find<QLabel>("label_SeqFile");
    QCOMPARE(name->text(), "given.json");
    select(0);
    m_tool->trigger("action_Duplicate_Step");
    QCOMPARE(name->text(), "given.json (not saved)");
    m_tool->trigger("action_Undo");
    QCOMPARE(name->text(), "given.json");
    m_tool->trigger("action_Redo");
    QVERIFY(QFile::link("/dev/full", "full.json")); // can be opened, but not written
    choose("pushButton_SeqSave", "full.json");
    QCOMPARE(name->text(), "given.json (not saved)");
    QVERIFY(messages().constLast().contains("full.json is not saved: "));
    choose("pushButton_SeqSave", "b.json");
    QCOMPARE(name->text(), "b.json");
    const QByteArray saved = json();
    load("{}", "bad.json");
    QVERIFY(messages().constLast().contains("bad.json cannot be loaded: "));
    QCOMPARE(json(), saved);
    QCOMPARE(shown(), QStringList());
    m_tool->trigger("action_Undo");
    QCOMPARE(name->text(), "b.json (not saved)");
    m_tool->trigger("action_Undo"); // of Load
    QCOMPARE(name->text(), "No file");
    auto* recent = m_tool->find<QMenu>("menu_Recent_Sequences");
    emit recent->aboutToShow();
    QCOMPARE(recent->actions().size(), 2);
    recent->actions().constFirst()->trigger();
    QCOMPARE(name->text(), "b.json");
    QCOMPARE(json(), saved);
    QCOMPARE(frames(), QStringList());
}

/// The second window finds the draft of the first one, which was closed with unsaved work.
void TestSequenceEdit::drafts()
{
    const QString program = QCoreApplication::applicationName();
    const auto folder = [&] { return QDir(QDir::currentPath() + '/' + program + "/drafts"); };
    QVERIFY(!m_tool->find<QWidget>("widget_SeqDraft")->isVisible());
    table()->selectAll();
    m_tool->trigger("action_Duplicate_Step");
    QTRY_COMPARE_WITH_TIMEOUT(folder().entryList({"*.json"}).size(), 1, DraftMs);
    choose("pushButton_SeqSave", "given2.json");
    QTRY_COMPARE_WITH_TIMEOUT(folder().entryList({"*.json"}).size(), 0, DraftMs);
    m_tool->trigger("action_Duplicate_Step");
    const QByteArray unsaved = json();
    const QDir written = folder();
    close();

    open({"--node", "2", "--speed", "50"});
    QVERIFY(QDir().mkpath(folder().path()));
    for (const QString& file : written.entryList(QDir::Files))
        QVERIFY(QFile::copy(written.filePath(file), folder().filePath(file)));
    QCOMPARE(folder().entryList({"*.json"}).size(), 1);
    m_tool->showPage(SequenceTab);
    QVERIFY(m_tool->find<QWidget>("widget_SeqDraft")->isVisible());
    QVERIFY(m_tool->find<QLabel>("label_SeqDraft")->text().contains("given2.json, 9 steps"));
    clearRecords();
    m_tool->click("pushButton_SeqRestoreDraft");
    QCOMPARE(json(), unsaved);
    QCOMPARE(m_tool->find<QLabel>("label_SeqFile")->text(), "given2.json (not saved)");
    QVERIFY(!m_tool->find<QWidget>("widget_SeqDraft")->isVisible());
    const auto drafts = [&] { return SequenceDraft::findAbandoned(folder().path()).size(); };
    const auto files = [&] { return folder().entryList({"*.json"}).size(); };
    m_tool->trigger("action_Undo");
    QCOMPARE(table()->rowCount(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(files(), 1, DraftMs); // the work is nowhere else
    m_tool->trigger("action_Redo");
    load(ThreeSteps, "other.json"); // replaces the unsaved work
    QTRY_COMPARE_WITH_TIMEOUT(files(), 1, DraftMs);
    m_tool->trigger("action_Undo");
    choose("pushButton_SeqSave", "given3.json");
    QTRY_COMPARE_WITH_TIMEOUT(files(), 0, DraftMs);
    QCOMPARE(drafts(), 0U);
    QCOMPARE(frames(), QStringList());
}

void TestSequenceEdit::repeatedRun()
{
    auto* repeat = m_tool->find<QSpinBox>("spinBox_SeqRepeat");
    QTest::keyClick(repeat, Qt::Key_Down);
    QCOMPARE(repeat->value(), 1); // not endless
    QWheelEvent wheel({5, 5}, repeat->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(repeat, &wheel);
    QCOMPARE(repeat->value(), 1);
    repeat->setValue(3);
    select(1);
    QSignalSpy ends(m_tool->window()->findChild<SequencePlayer*>(), &SequencePlayer::sig_ended);
    QStringList lines;
    connect(m_tool->window()->findChild<SequencePlayer*>(), &SequencePlayer::sig_updatePlaying,
            this, [&] { lines.append(table()->verticalHeaderItem(2) ? line() : QString()); });
    m_tool->click("pushButton_SeqRun");
    QTRY_VERIFY(!m_tool->enabled("pushButton_SeqStop"));
    QCOMPARE(motions().size(), 3 * 12);
    QCOMPARE(ends.count(), 1);
    QVERIFY(lines.contains("Playing step 3 of 3, round 2 of 3"));
    m_tool->window()->findChild<SequencePlayer*>()->disconnect(this);
    repeat->setValue(0);
    select(1);
    m_tool->click("pushButton_SeqRun");
    QTRY_VERIFY(motions().size() > 3 * 12);
    m_tool->click("pushButton_SeqStop");
    QVERIFY(!m_tool->enabled("pushButton_SeqStop"));
    choose("pushButton_SeqLoad", "given.json");
    QCOMPARE(repeat->value(), 1);
    table()->selectAll();
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_Delete);
    QVERIFY(!repeat->isEnabled());
}

VANTO_TEST(TestSequenceEdit)

} // namespace vanto

#include "tst_sequenceedit.moc"
