#pragma once

#include "generation.h"
#include "sequencemanager.h"

#include <functional>

namespace vanto
{

class StepTable;

/// Changes the sequence and keeps the table of its steps up to date. All changes of either are made
/// through this class. Sends nothing to a hand.
class SequenceEditor
{
public:
    explicit SequenceEditor(StepTable* table) : m_table(table) {}

    const SequenceData& data() const { return m_manager.sequenceData(); }
    bool isEmpty() const { return data().sequences.isEmpty(); }
    /// Stale once rows have been inserted, removed or swapped.
    Generation::Token edition() const { return m_edition.token(); }

    void setPositionType(const QString& type) { m_manager.setPositionType(type); }
    void insert(int row, const SequenceDataItem& step);
    void remove(int row);
    void swap(int row, int other);
    /// Changes the values of a step, in whichever row it is; does nothing if it no longer exists.
    void edit(std::uint64_t step, const std::function<void(SequenceDataItem&)>& change);

    /// Stores a finger's value. Appends it if the list ends just before it, but leaves no gap: a
    /// value that was never chosen would move a finger.
    static void store(QList<int>& values, std::uint8_t finger, int value);

    /// See SequenceManager.
    bool load(QFile& file);
    bool save(QFile& file) const { return m_manager.saveSequenceData(file); }

private:
    StepTable* m_table;
    SequenceManager m_manager{nullptr};
    Generation m_edition;
};

} // namespace vanto
