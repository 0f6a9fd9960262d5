#include "sequencetest.h"

#include "pageindex.h"
#include "sequencedraft.h"

#include <QFileDialog>

namespace vanto
{

void SequenceTest::start(int drafts)
{
    open({"--node", "2", "--speed", "50"});
    for (int i = 0; i < drafts; ++i) {
        const SequenceData data{1, SequenceData::POS_TYPE_ANGLE, {{{1, 2, 3, 4, 5, 6}, {7}, i}}};
        SequenceDraft(SequenceDraft::userFolder()).write(data, "draft.json");
    }
    m_tool->showPage(SequenceTab);
    m_tool->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tool->window()));
    load(ThreeSteps);
    clearRecords();
}

QString SequenceTest::delays() const
{
    QString all;
    for (const SequenceDataItem& step : editor()->data().sequences)
        all += QString::number(step.delay);
    return all;
}

QString SequenceTest::selected() const
{
    QString rows;
    for (int row = 0; row < table()->rowCount(); ++row)
        if (table()->selectionModel()->isRowSelected(row))
            rows += QString::number(row);
    return rows + '|' + QString::number(table()->currentRow());
}

void SequenceTest::choose(const char* button, const QString& file) const
{
    DialogAnswer<QFileDialog> answer([&](QFileDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), "Choose json file");
        QCOMPARE(dialog->nameFilters(), QStringList{"Sequence files (*.json)"});
        chooseFile(*dialog, QFileInfo(file).absoluteFilePath());
    });
    DialogAnswer<QMessageBox> overwrite(
        [](QMessageBox* box) { box->button(QMessageBox::Yes)->click(); });
    m_tool->click(button);
    QCOMPARE(answer.count(), 1);
    m_tool->window()->activateWindow(); // the dialog was the active one
    QVERIFY(QTest::qWaitForWindowActive(m_tool->window()));
}

void SequenceTest::load(const QByteArray& json, const QString& name) const
{
    QFile file(name);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(json);
    file.close();
    choose("pushButton_SeqLoad", name);
}

void SequenceTest::select(int row) const
{
    table()->setCurrentCell(row, 0);
    QTRY_VERIFY(table()->isEnabled());
    table()->setFocus();
    m_hand->clearTrace();
}

void SequenceTest::clickRow(int row, Qt::KeyboardModifiers modifiers) const
{
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, modifiers,
                      table()->visualItemRect(table()->item(row, 2)).center());
}

} // namespace vanto
