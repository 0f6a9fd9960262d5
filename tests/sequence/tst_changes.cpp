#include "sequencemanager.h"
#include "testmain.h"

#include <QTest>

namespace vanto
{

/// Edits of a sequence as data.
class TestChanges : public QObject
{
    Q_OBJECT
private slots:
    void rows_data();
    void rows();
};

namespace
{
/// The delays stand for the steps.
QString delays(const SequenceData& data)
{
    QStringList texts;
    for (const SequenceDataItem& step : data.sequences)
        texts.append(QString::number(step.delay));
    return texts.join(' ');
}
} // namespace

void TestChanges::rows_data()
{
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<QString>("removed");
    QTest::addColumn<QString>("up");
    QTest::addColumn<QString>("down");
    QTest::newRow("none") << QList<int>{} << "0 1 2 3 4"
                          << "0 1 2 3 4"
                          << "0 1 2 3 4";
    QTest::newRow("first") << QList<int>{0} << "1 2 3 4"
                           << "0 1 2 3 4"
                           << "1 0 2 3 4";
    QTest::newRow("block") << QList<int>{2, 3} << "0 1 4"
                           << "0 2 3 1 4"
                           << "0 1 4 2 3";
    QTest::newRow("apart") << QList<int>{1, 3} << "0 2 4"
                           << "1 0 3 2 4"
                           << "0 2 1 4 3";
    QTest::newRow("ends") << QList<int>{0, 4} << "1 2 3"
                          << "0 1 2 3 4"
                          << "0 1 2 3 4";
    QTest::newRow("all") << QList<int>{0, 1, 2, 3, 4} << ""
                         << "0 1 2 3 4"
                         << "0 1 2 3 4";
}

void TestChanges::rows()
{
    QFETCH(QList<int>, rows);
    SequenceManager manager;
    for (int i = 0; i < 5; ++i)
        manager.insertSequenceDataItem(i, {{}, {}, i});
    const SequenceData before = manager.sequenceData();
    for (const auto& [edit, column] : {std::pair{SequenceEdit::removal(before, rows), "removed"},
                                       {SequenceEdit::move(before, rows, -1), "up"},
                                       {SequenceEdit::move(before, rows, 1), "down"}}) {
        manager.apply(edit);
        QCOMPARE(delays(manager.sequenceData()),
                 *static_cast<QString*>(QTest::qData(column, qMetaTypeId<QString>())));
        QCOMPARE(edit.origins.size(), edit.after.size());
        for (int i = 0; i < edit.origins.size(); ++i)
            QCOMPARE(edit.after[i], edit.before[edit.origins[i]]);
        manager.revert(edit);
        QCOMPARE(manager.sequenceData(), before);
    }
}

VANTO_TEST(TestChanges)

} // namespace vanto

#include "tst_changes.moc"
