#pragma once

#include "sequencedata.h"

namespace vanto
{

/// A change of a sequence, as data: at `row` the steps `before` are replaced by `after`. The same
/// form covers inserting, removing, moving and changing steps and replacing the whole sequence, so
/// every change is reverted in the same way.
///
/// The functions that create an edit take the sequence to which it applies. Rows must be those of
/// existing steps, in ascending order.
struct SequenceEdit {
    using Steps = QList<SequenceDataItem>;
    static constexpr int NewStep = -1;

    int row = 0;
    Steps before;
    Steps after;
    QList<int> origins; ///< for each step of `after` its index in `before`, or NewStep
    QString typeBefore;
    QString typeAfter;

    /// `row` may be the number of steps, which appends.
    static SequenceEdit insertion(const SequenceData& data, int row, const Steps& steps);
    static SequenceEdit removal(const SequenceData& data, const QList<int>& rows);
    /// Moves each of the rows by one, up (-1) or down (1). Changes nothing if one of them is at the
    /// end already.
    static SequenceEdit move(const SequenceData& data, const QList<int>& rows, int distance);
    static SequenceEdit exchange(const SequenceData& data, int row, int other);
    static SequenceEdit change(const SequenceData& data, int row, const SequenceDataItem& step);
    static SequenceEdit typeChange(const SequenceData& data, const QString& type);
    static SequenceEdit replacement(const SequenceData& data, const SequenceData& other);

    bool changesNothing() const { return before == after && typeBefore == typeAfter; }
    /// `data` must be in the state before the edit.
    void applyTo(SequenceData& data) const;
    /// `data` must be in the state after the edit.
    void revertIn(SequenceData& data) const;
    /// The memory that the edit needs, approximately.
    qsizetype bytes() const;
};

} // namespace vanto
