#include "sequenceeditor.h"

#include "steptable.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <utility>

namespace vanto
{

namespace
{
bool areDisjoint(const QList<std::uint64_t>& a, const QList<std::uint64_t>& b)
{
    const QSet<std::uint64_t> ids(a.begin(), a.end());
    return std::ranges::none_of(b, [&](std::uint64_t id) { return ids.contains(id); });
}
} // namespace

SequenceEditor::SequenceEditor(StepTable* table, QObject* parent)
    : QObject(parent),
      m_table(table),
      m_history([this](const SequenceChange& change, bool revert) { apply(change, revert); })
{
}

SequenceData SequenceEditor::part(const QList<int>& rows) const
{
    SequenceData copy;
    copy.position_type = data().position_type;
    for (const int row : rows)
        copy.sequences.append(data().sequences[row]);
    return copy;
}

void SequenceEditor::setPositionType(const QString& type)
{
    push(SequenceEdit::typeChange(data(), type), tr("change of the unit"), StepTable::NoStep);
}

void SequenceEditor::insert(int row, const SequenceData& steps, const QString& text)
{
    const auto step = m_table->nextId();
    SequenceEdit edit = SequenceEdit::insertion(data(), row, steps.sequences);
    edit.typeAfter = steps.position_type;
    push(edit, nameSteps(text, row, steps.sequences.size()), step);
}

void SequenceEditor::remove(const QList<int>& rows, const QString& text)
{
    if (!rows.isEmpty())
        push(SequenceEdit::removal(data(), rows), nameSteps(text, rows.constFirst(), rows.size()),
             m_table->idOf(rows.constFirst()));
}

bool SequenceEditor::move(const QList<int>& rows, int distance)
{
    const SequenceEdit edit = SequenceEdit::move(data(), rows, distance);
    if (edit.origins.isEmpty())
        return false;
    push(edit, nameSteps(tr("move of %1"), rows.constFirst(), rows.size()),
         m_table->idOf(rows.constFirst()));
    return true;
}

void SequenceEditor::exchange(int row, int other)
{
    push(SequenceEdit::exchange(data(), row, other), nameSteps(tr("move of %1"), row, 1),
         m_table->idOf(row));
}

void SequenceEditor::edit(std::uint64_t step, const QString& text,
                          const std::function<void(SequenceDataItem&)>& change)
{
    const int row = m_table->rowOf(step);
    if (row < 0)
        return;
    SequenceDataItem changed = data().sequences[row];
    change(changed);
    push(SequenceEdit::change(data(), row, changed), nameSteps(text, row, 1), step);
}

void SequenceEditor::replace(const SequenceData& other, const QString& file, const QString& text)
{
    SequenceChange change{.edit = SequenceEdit::replacement(data(), other),
                          .idsBefore = {},
                          .idsAfter = {},
                          .step = StepTable::NoStep,
                          .fileBefore = m_file,
                          .fileAfter = file,
                          .isOfFile = true,
                          .text = text};
    push(std::move(change));
}

void SequenceEditor::store(QList<int>& values, std::uint8_t finger, int value)
{
    if (finger < values.size())
        values[finger] = value;
    else if (finger == values.size())
        values.append(value);
}

QString SequenceEditor::nameSteps(const QString& text, int row, qsizetype count)
{
    return text.arg(count == 1 ? tr("step %1").arg(row + 1) : tr("%1 steps").arg(count));
}

/// An edit that changes nothing cannot be undone. (The exchange of two equal steps counts.)
void SequenceEditor::push(const SequenceEdit& edit, const QString& text, std::uint64_t step)
{
    const bool moves = !std::is_sorted(edit.origins.begin(), edit.origins.end());
    if (!edit.changesNothing() || moves)
        push({.edit = edit,
              .idsBefore = {},
              .idsAfter = {},
              .step = step,
              .fileBefore = {},
              .fileAfter = {},
              .text = text});
}

void SequenceEditor::push(SequenceChange change)
{
    const SequenceEdit& edit = change.edit;
    change.idsBefore = m_table->ids(edit.row, edit.before.size());
    for (const int origin : edit.origins)
        change.idsAfter.append(origin == SequenceEdit::NewStep ? m_table->takeId()
                                                               : change.idsBefore[origin]);
    m_history.push(std::move(change));
    m_onDisk.removeIf([this](const auto& file) {
        return file.key() != m_file && !m_history.mentions(file.key());
    });
}

void SequenceEditor::apply(const SequenceChange& change, bool revert)
{
    const SequenceEdit& edit = change.edit;
    const auto& ids = revert ? change.idsBefore : change.idsAfter;
    const auto& oldIds = revert ? change.idsAfter : change.idsBefore;
    const auto replaced = revert ? edit.after.size() : edit.before.size();
    if (replaced > 0 && replaced == data().sequences.size() && areDisjoint(oldIds, ids))
        emit sig_replacing();
    if (revert)
        m_manager.revert(edit);
    else
        m_manager.apply(edit);
    m_table->replaceSteps(edit.row, replaced, ids, revert ? edit.before : edit.after);
    if (change.isOfFile)
        m_file = revert ? change.fileBefore : change.fileAfter;
    if (!std::ranges::equal(change.idsBefore, change.idsAfter))
        m_edition.advance();
    emit sig_changed();
}

/// If the step does not exist, the row that is now at its place.
int SequenceEditor::rowOf(const SequenceChange* change) const
{
    if (!change || change->step == StepTable::NoStep)
        return -1;
    const int row = m_table->rowOf(change->step);
    return row >= 0 ? row : std::min(change->edit.row, m_table->rowCount() - 1);
}

bool SequenceEditor::load(const QString& name)
{
    QFile file(name);
    SequenceManager loaded;
    if (!loaded.loadSequenceData(file)) {
        m_fileError = loaded.fileError();
        return false;
    }
    m_fileError.clear();
    noteOnDisk(name, loaded.sequenceData());
    replace(loaded.sequenceData(), name, tr("loading of %1").arg(QFileInfo(name).fileName()));
    return true;
}

bool SequenceEditor::save(const QString& name)
{
    QFile file(name);
    const bool opened = m_manager.saveSequenceData(file);
    m_fileError = m_manager.fileError();
    const bool isSaved = opened && m_fileError.isEmpty();
    if (isSaved)
        noteOnDisk(m_file = name, data());
    else if (m_manager.mayHaveDamaged())
        noteOnDisk(name, {});
    emit sig_changed();
    return isSaved;
}

void SequenceEditor::noteOnDisk(const QString& name, const std::optional<SequenceData>& content)
{
    m_onDisk.insert(name, content);
    const QString path = QFileInfo(name).canonicalFilePath();
    for (auto file = m_onDisk.begin(); file != m_onDisk.end(); ++file)
        if (!path.isEmpty() && QFileInfo(file.key()).canonicalFilePath() == path)
            file.value() = content;
}

bool SequenceEditor::isModified() const
{
    if (m_file.isEmpty())
        return !isEmpty();
    return m_onDisk.value(m_file) != data();
}

} // namespace vanto
