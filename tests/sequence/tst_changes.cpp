#include "sequencemanager.h"
#include "testmain.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

namespace vanto
{

/// Edits of a sequence as data.
class TestChanges : public QObject
{
    Q_OBJECT
private slots:
    void rows_data();
    void rows();
    void randomEdits();
};

namespace
{
constexpr int Seeds = 1000;
constexpr int MaxEdits = 1000;
constexpr int MaxSteps = 40;

class RandomEdits
{
public:
    explicit RandomEdits(quint32 seed) : m_random(seed) {}

    SequenceEdit next(const SequenceData& data)
    {
        const auto count = static_cast<int>(data.sequences.size());
        const int kind = below(count > MaxSteps ? 2 : 100);
        if (kind < 20)
            return SequenceEdit::removal(data, rows(count));
        if (kind < 45)
            return SequenceEdit::insertion(data, below(count + 1), steps(below(4)));
        if (kind < 65)
            return SequenceEdit::move(data, rows(count), below(2) ? 1 : -1);
        if (kind < 97 && count > 0)
            return SequenceEdit::change(data, below(count), step());
        const QString type =
            below(2) ? SequenceData::POS_TYPE_ANGLE : SequenceData::POS_TYPE_POSITION;
        if (kind < 98)
            return SequenceEdit::typeChange(data, type);
        return SequenceEdit::replacement(data, {1, type, steps(below(9))}); // as Load does
    }
    int below(int limit) { return static_cast<int>(m_random.bounded(limit)); }

private:
    SequenceDataItem step()
    {
        return {QList<int>(below(7), below(65536)), QList<int>(below(7), 1 + below(255)),
                below(65536)};
    }
    QList<SequenceDataItem> steps(int count)
    {
        QList<SequenceDataItem> list;
        while (list.size() < count)
            list.append(step());
        return list;
    }
    QList<int> rows(int count)
    {
        QList<int> list;
        for (int row = 0; row < count; ++row)
            if (below(count) < 2)
                list.append(row);
        return list;
    }

    QRandomGenerator m_random;
};

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

void TestChanges::randomEdits()
{
    for (quint32 seed = 0; seed < Seeds; ++seed) {
        RandomEdits random(seed);
        SequenceManager manager;
        QList<SequenceEdit> edits;
        QList<SequenceData> states{manager.sequenceData()};
        QByteArrayList json{manager.sequenceData().toJSON()};
        const int count = random.below(MaxEdits + 1);
        for (int i = 0; i < count; ++i) {
            edits.append(random.next(manager.sequenceData()));
            manager.apply(edits.constLast());
            states.append(manager.sequenceData());
        }
        json.append(manager.sequenceData().toJSON());
        for (int i = count - 1; i >= 0; --i) {
            manager.revert(edits[i]);
            QVERIFY2(manager.sequenceData() == states[i], qPrintable(QString::number(seed)));
        }
        QCOMPARE(manager.sequenceData().toJSON(), json.first());
        for (int i = 0; i < count; ++i) {
            manager.apply(edits[i]);
            QVERIFY2(manager.sequenceData() == states[i + 1], qPrintable(QString::number(seed)));
        }
        QCOMPARE(manager.sequenceData().toJSON(), json.last());
    }
}

VANTO_TEST(TestChanges)

} // namespace vanto

#include "tst_changes.moc"
