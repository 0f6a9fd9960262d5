#include "sequenceplayer.h"
#include "sequencetest.h"

#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QWheelEvent>

namespace vanto
{

/// Values that are typed or dragged, and the number of rounds.
class TestSequenceValues : public SequenceTest
{
    Q_OBJECT
private slots:
    void typedValues_data();
    void typedValues();
    void previews();
    void repeatedRun();
};

void TestSequenceValues::typedValues_data()
{
    addTextRows({"typed", "shown", "sent", "left"}, {{"12345", "12345", "4c 023930fd", "12345"},
                                                     {"1,000", "3000", "", "3000"},
                                                     {"70000", "65535", "", "3000"},
                                                     {"-1", "0", "", "3000"},
                                                     {"x", "3000", "", "3000"},
                                                     {"", "3000", "", "3000"}});
}

void TestSequenceValues::typedValues()
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

void TestSequenceValues::previews()
{
    select(0);
    auto* slider = m_tool->find<QSlider>("verticalSlider_SeqPos2");
    slider->triggerAction(QSlider::SliderPageStepAdd); // as a click into the groove
    QVERIFY(m_tool->field("lineEdit_SeqPos2") != "3000");
    QVERIFY(line().startsWith("A value is not stored"));
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
    command("fault refuse command=0x0b"); // of the target that the finger has now
    slider->setSliderDown(true);
    slider->setSliderPosition(30000);
    slider->setSliderDown(false);
    QCOMPARE(m_tool->field("lineEdit_SeqPos2"), "30000");
    QVERIFY(line().startsWith("A value is not stored"));
    QCOMPARE(editor()->data().sequences[0].position[2], 3000);
}

void TestSequenceValues::repeatedRun()
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
    QTRY_VERIFY(motions().size() > qsizetype{3} * 12);
    m_tool->click("pushButton_SeqStop");
    QVERIFY(!m_tool->enabled("pushButton_SeqStop"));
    choose("pushButton_SeqLoad", "given.json");
    QCOMPARE(repeat->value(), 1);
    table()->selectAll();
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_Delete);
    QVERIFY(!repeat->isEnabled());
}

VANTO_TEST(TestSequenceValues)

} // namespace vanto

#include "tst_sequencevalues.moc"
