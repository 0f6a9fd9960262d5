#include "edittest.h"

#include "fingers.h"
#include "sequenceeditor.h"
#include "steptable.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSet>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr int MaxEdits = 1000;
constexpr int MaxSteps = 90;  ///< of a sequence; more are removed
constexpr int ManySteps = 70; ///< so many that half of them, far apart, are moved another way
const QString Name = QStringLiteral("%1");

/// Changes a sequence at random, through all functions of its editor.
class RandomEdits
{
public:
    RandomEdits(quint32 seed, SequenceEditor* editor, StepTable* table)
        : m_random(seed), m_editor(editor), m_table(table)
    {
    }

    int loads() const { return m_loads; }
    int below(int limit) { return static_cast<int>(m_random.bounded(limit)); }
    void editOnce(const QString& file)
    {
        const int count = m_table->rowCount();
        const int kind = below(count > MaxSteps ? 2 : 100);
        const QString type =
            below(2) ? SequenceData::POS_TYPE_ANGLE : SequenceData::POS_TYPE_POSITION;
        if (kind < 20)
            m_editor->remove(rows(count), Name);
        else if (kind < 45)
            m_editor->insert(below(count + 1),
                             {1, count ? m_editor->data().position_type : type,
                              steps(below(20) ? below(4) : ManySteps)},
                             Name);
        else if (kind < 60)
            m_editor->move(rows(count), below(2) ? 1 : -1);
        else if (kind < 65 && count > 0)
            m_editor->exchange(below(count), below(count));
        else if (kind < 95 && count > 0)
            m_editor->edit(m_table->idOf(below(count)), Name,
                           [this](SequenceDataItem& changed) { changed = step(); });
        else if (kind < 97)
            m_editor->setPositionType(type);
        else if (kind < 99)
            m_loads += m_editor->load(file) ? 1 : 0;
        else
            m_editor->replace({1, type, steps(below(9))}, {}, {});
    }

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
        const int expected = below(4) ? 2 : count / 2;
        for (int row = 0; row < count; ++row)
            if (below(count) < expected)
                list.append(row);
        return list;
    }

    QRandomGenerator m_random;
    SequenceEditor* m_editor;
    StepTable* m_table;
    int m_loads = 0;
};

struct Counts {
    qint64 edits = 0;
    qint64 loads = 0; ///< among them
};

/// Whether the table shows the sequence, with an id for each step.
bool showsSteps(const StepTable& table, const SequenceData& data)
{
    QSet<std::uint64_t> ids;
    for (int row = 0; row < table.rowCount(); ++row) {
        ids.insert(table.idOf(row));
        const QList<int> positions = data.sequences.value(row).position;
        for (std::uint8_t f = 0; f < FingerCount; ++f) {
            const auto* cell = table.item(row, StepTable::columnOf(f));
            if ((cell ? cell->text() : QString()) !=
                (f < positions.size() ? QString::number(positions[f]) : QString()))
                return false;
        }
    }
    return ids.size() == data.sequences.size() && !ids.contains(StepTable::NoStep);
}

/// Makes random edits, undoes all of them and redoes all. Returns what is wrong, or nothing.
QString runSeed(quint32 seed, const QString& file, Counts& counts)
{
    StepTable table;
    table.setColumnCount(FingerCount);
    SequenceEditor editor(&table);
    const QUndoStack& history = editor.history();
    RandomEdits random(seed, &editor, &table);
    QList<SequenceData> states{editor.data()};
    for (int i = random.below(MaxEdits + 1); i > 0; --i) {
        random.editOnce(file);
        if (history.count() == states.size())
            states.append(editor.data());
    }
    counts.edits += history.count();
    counts.loads += random.loads();
    const qsizetype last = states.size() - 1;
    const QByteArray json = editor.data().toJSON();
    const auto isState = [&](qsizetype i) {
        return history.index() == i && editor.data() == states[i] && showsSteps(table, states[i]);
    };
    if (history.count() != last || !isState(last))
        return QStringLiteral("the edits do not give the last state");
    for (auto i = last - 1; i >= 0; --i)
        if (editor.undo(); !isState(i))
            return QStringLiteral("Undo does not give state %1").arg(i);
    if (editor.data().toJSON() != SequenceData().toJSON())
        return QStringLiteral("the first text differs");
    for (qsizetype i = 1; i <= last; ++i)
        if (editor.redo(); !isState(i))
            return QStringLiteral("Redo does not give state %1").arg(i);
    return editor.data().toJSON() == json ? QString() : QStringLiteral("the last text differs");
}
} // namespace

int EditTest::run(int count, std::uint32_t seed)
{
    QFile file(QDir::current().absoluteFilePath(QStringLiteral("loaded.json")));
    if (!file.open(QFile::WriteOnly))
        return 1;
    file.write(SequenceData{1, SequenceData::POS_TYPE_ANGLE, {{{1}, {2, 3}, 4}, {}}}.toJSON());
    file.close();
    int findings = 0;
    Counts counts;
    for (int i = 0; i < count; ++i) {
        const auto current = seed + static_cast<std::uint32_t>(i);
        const QString wrong = runSeed(current, file.fileName(), counts);
        if (wrong.isEmpty())
            continue;
        ++findings;
        std::printf("FINDING: seed %u: %s\n", current, qPrintable(wrong));
    }
    std::printf("%d seeds from %u: %lld edits, %lld of them loads, all undone and redone, "
                "%d findings\n",
                count, seed, counts.edits, counts.loads, findings);
    return counts.loads > 0 ? findings : findings + 1;
}

} // namespace vanto
