#pragma once

#include "sequenceedit.h"

#include <QUndoStack>

#include <cstdint>
#include <functional>

namespace vanto
{

/// A change of the edited sequence, with what the page needs to show it.
struct SequenceChange {
    SequenceEdit edit;
    QList<std::uint64_t> idsBefore; ///< of the steps that the edit replaces
    QList<std::uint64_t> idsAfter;
    std::uint64_t step = 0; ///< the first step concerned; 0 if the whole sequence is
    QString fileBefore;     ///< the name of the file, if the change is one of the file
    QString fileAfter;
    bool isOfFile = false;
    QString text; ///< as in "Undo %1"
};

/// The changes that can be undone and redone: at most 1,000, and at most 64 MiB of data except for
/// the last change.
class SequenceHistory
{
public:
    static constexpr int MaxChanges = 1000;
    static constexpr qsizetype MaxBytes = 64 << 20;

    /// Applies a change, or reverts it.
    using Apply = std::function<void(const SequenceChange& change, bool revert)>;

    explicit SequenceHistory(Apply apply);

    /// Applies the change and adds it; changes that have been undone are dropped.
    void push(SequenceChange change);
    /// Return the change that has been reverted or applied again, or nullptr.
    const SequenceChange* undo();
    const SequenceChange* redo();
    const QUndoStack& stack() const { return m_stack; }
    QUndoStack& stack() { return m_stack; }
    /// Whether a change refers to the file.
    bool mentions(const QString& file) const;

private:
    class Command;

    const Command* commandAt(int index) const;
    void trim(qsizetype added);

    Apply m_apply;
    QUndoStack m_stack;
};

} // namespace vanto
