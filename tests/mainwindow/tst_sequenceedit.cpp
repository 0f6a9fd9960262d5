#include "pageindex.h"
#include "sequencetest.h"

#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QRandomGenerator>
#include <QSlider>

namespace vanto
{

/// Editing a sequence without sending anything.
class TestSequenceEdit : public SequenceTest
{
    Q_OBJECT
private slots:
    void undoAndRedo();
    void returnSendsTheRow();
    void randomSession();
    void whenEnabled();
    void selectionOfSeveralRows();
    void clipboard();
};

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
        line().startsWith("Not sent; Return sends it. Step 2: delay 9 ms, speeds 9 9 9 9 9 17"));
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

    m_tool->trigger("action_Duplicate_Step");
    m_hand->clearTrace();
    clickRow(3); // selects no other row
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Home, Qt::Key_Tab})
        QTest::keyClick(table(), key);
    QCOMPARE(frames(), QStringList());
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {},
                       table()->visualItemRect(table()->item(3, 2)).center());
    QCOMPARE(motions().size(), 6); // the fingers are not stretched before
}

void TestSequenceEdit::randomSession()
{
    close();
    start(/*drafts=*/2);
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    auto* delay = m_tool->find<QLineEdit>("lineEdit_SeqDelay");
    auto* mode = m_tool->find<QComboBox>("comboBox_SeqPosOrAngle");
    auto* recent = m_tool->find<QMenu>("menu_Recent_Sequences");
    for (int i = 0; i < 400; ++i) {
        const int rows = table()->rowCount();
        const int kind = rows > 50 ? 0 : random.bounded(12);
        if (kind == 0) {
            table()->selectAll();
            m_tool->trigger("action_Delete_Step");
        } else if (kind < 4 && rows > 0) {
            clickRow(random.bounded(std::min(rows, 5)),
                     random.bounded(2) ? Qt::ShiftModifier : Qt::ControlModifier);
        } else if (kind == 4 && delay->isEnabled()) { // typed, but not finished
            delay->setFocus();
            QTest::keyClick(delay, static_cast<Qt::Key>(Qt::Key_0 + random.bounded(10)));
        } else if (kind == 5 && mode->isEnabled()) {
            mode->setCurrentIndex(random.bounded(2));
        } else if (kind == 6) {
            emit recent->aboutToShow();
            recent->actions().constFirst()->trigger();
        } else if (kind == 7 && m_tool->find<QWidget>("widget_SeqDraft")->isVisible()) {
            m_tool->click("pushButton_SeqRestoreDraft");
        } else {
            m_tool->trigger(DataActions[random.bounded(DataActions.size())]);
        }
        QCOMPARE(table()->rowCount(), editor()->data().sequences.size());
        for (int row = 0; row < table()->rowCount(); ++row)
            QCOMPARE(table()->item(row, 1)->text().toInt(),
                     editor()->data().sequences[row].position[0]);
    }
    table()->setFocus(); // finishes what is typed
    QVERIFY(m_tool->find<QWidget>("widget_SeqDraft")->isHidden());
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
    QCOMPARE(selected(), "12|2");
    QTest::keyClick(table(), Qt::Key_Up, Qt::AltModifier | Qt::ShiftModifier);
    QCOMPARE(selected(), "12|2");
    QCOMPARE(frames(), QStringList());
    clickRow(0);
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

VANTO_TEST(TestSequenceEdit)

} // namespace vanto

#include "tst_sequenceedit.moc"
