#include "sequencehistory.h"
#include "testmain.h"

#include <QTest>

namespace vanto
{

class TestSequenceHistory : public QObject
{
    Q_OBJECT
private slots:
    void limits();
};

void TestSequenceHistory::limits()
{
    SequenceData data;
    SequenceHistory history([&](const SequenceChange& change, bool revert) {
        revert ? change.edit.revertIn(data) : change.edit.applyTo(data);
    });
    const auto change = [&](int steps) {
        SequenceChange made;
        made.edit = SequenceEdit::insertion(data, 0, QList<SequenceDataItem>(steps));
        history.push(made);
    };
    for (int i = 0; i < SequenceHistory::MaxChanges + 5; ++i)
        change(1);
    QCOMPARE(history.stack().count(), SequenceHistory::MaxChanges);
    while (history.stack().count() > 9 || history.stack().count() == SequenceHistory::MaxChanges)
        change(100'000); // each needs more than 10 MB
    const auto steps = data.sequences.size();
    const int kept = history.stack().count();
    QVERIFY(kept > 2);
    while (history.undo()) {
    }
    QCOMPARE(data.sequences.size(), steps - qsizetype{100'000} * kept);
    while (history.redo()) {
    }
    QCOMPARE(data.sequences.size(), steps);
    change(600'000); // larger than all that may be kept
    QCOMPARE(history.stack().count(), 1);
    history.undo();
    QCOMPARE(data.sequences.size(), steps);
}

VANTO_TEST(TestSequenceHistory)

} // namespace vanto

#include "tst_sequencehistory.moc"
