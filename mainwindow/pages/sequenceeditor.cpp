#include "sequenceeditor.h"

#include "steptable.h"

namespace vanto
{

void SequenceEditor::insert(int row, const SequenceDataItem& step)
{
    m_manager.insertSequenceDataItem(row, step);
    m_table->insertStep(row, step.position);
    m_edition.advance();
}

void SequenceEditor::remove(int row)
{
    m_manager.removeSequenceDataItem(row);
    m_table->removeStep(row);
    m_edition.advance();
}

void SequenceEditor::swap(int row, int other)
{
    m_manager.swapSequenceDataItem(row, other);
    m_table->swapIds(row, other);
    m_table->showPositions(row, data().sequences[row].position);
    m_table->showPositions(other, data().sequences[other].position);
    m_edition.advance();
}

void SequenceEditor::edit(std::uint64_t step, const std::function<void(SequenceDataItem&)>& change)
{
    const int row = m_table->rowOf(step);
    if (row < 0)
        return;
    SequenceDataItem changed = data().sequences[row];
    change(changed);
    m_manager.updateSequenceDataItem(row, changed);
    m_table->showPositions(row, changed.position);
}

void SequenceEditor::store(QList<int>& values, std::uint8_t finger, int value)
{
    if (finger < values.size())
        values[finger] = value;
    else if (finger == values.size())
        values.append(value);
}

bool SequenceEditor::load(QFile& file)
{
    if (!m_manager.loadSequenceData(file))
        return false;
    m_table->setSteps(data().sequences);
    m_edition.advance();
    return true;
}

} // namespace vanto
