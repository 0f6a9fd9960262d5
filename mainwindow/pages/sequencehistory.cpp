#include "sequencehistory.h"

#include <QSignalBlocker>

#include <memory>
#include <utility>

namespace vanto
{

class SequenceHistory::Command : public QUndoCommand
{
public:
    Command(std::shared_ptr<const SequenceChange> change, const Apply& apply, bool isApplied)
        : QUndoCommand(change->text),
          m_change(std::move(change)),
          m_apply(apply),
          m_isApplied(isApplied),
          m_bytes(m_change->edit.bytes())
    {
    }
    void undo() override { m_apply(*m_change, true); }
    void redo() override
    {
        if (!std::exchange(m_isApplied, false))
            m_apply(*m_change, false);
    }
    const std::shared_ptr<const SequenceChange>& change() const { return m_change; }
    qsizetype bytes() const { return m_bytes; }

private:
    std::shared_ptr<const SequenceChange> m_change;
    const Apply& m_apply;
    bool m_isApplied; ///< QUndoStack calls redo() for every command that is pushed
    qsizetype m_bytes;
};

SequenceHistory::SequenceHistory(Apply apply) : m_apply(std::move(apply))
{
    m_stack.setUndoLimit(MaxChanges);
}

const SequenceHistory::Command* SequenceHistory::commandAt(int index) const
{
    return static_cast<const Command*>(m_stack.command(index));
}

void SequenceHistory::push(SequenceChange change)
{
    trim(change.edit.bytes());
    m_stack.push(new Command(std::make_shared<SequenceChange>(std::move(change)), m_apply, false));
}

/// Drops the oldest changes if the data would become too large. QUndoStack cannot do this, so the
/// others are added again.
void SequenceHistory::trim(qsizetype added)
{
    qsizetype sum = added;
    int first = m_stack.index();
    while (first > 0 && sum + commandAt(first - 1)->bytes() <= MaxBytes)
        sum += commandAt(--first)->bytes();
    if (first == 0)
        return;
    QList<std::shared_ptr<const SequenceChange>> kept;
    for (int i = first; i < m_stack.index(); ++i)
        kept.append(commandAt(i)->change());
    const QSignalBlocker blocker(m_stack);
    m_stack.clear();
    for (const auto& change : kept)
        m_stack.push(new Command(change, m_apply, true));
}

const SequenceChange* SequenceHistory::undo()
{
    if (!m_stack.canUndo())
        return nullptr;
    m_stack.undo();
    return commandAt(m_stack.index())->change().get();
}

const SequenceChange* SequenceHistory::redo()
{
    if (!m_stack.canRedo())
        return nullptr;
    m_stack.redo();
    return commandAt(m_stack.index() - 1)->change().get();
}

bool SequenceHistory::mentions(const QString& file) const
{
    for (int i = 0; i < m_stack.count(); ++i)
        if (const auto& change = commandAt(i)->change();
            change->fileBefore == file || change->fileAfter == file)
            return true;
    return false;
}

} // namespace vanto
