#include "sequenceedit.h"

#include <algorithm>
#include <numeric>

namespace vanto
{

namespace
{
constexpr qsizetype ListOverhead = 32; ///< bytes of an allocated list, about

SequenceEdit editOf(const SequenceData& data, int row, qsizetype count)
{
    SequenceEdit edit;
    edit.row = row;
    edit.before = data.sequences.mid(row, count);
    edit.typeBefore = edit.typeAfter = data.position_type;
    return edit;
}

/// Fills `after` with the steps of `before` that `origins` names.
SequenceEdit rearranged(SequenceEdit edit, const QList<int>& origins)
{
    edit.origins = origins;
    for (const int origin : origins)
        edit.after.append(edit.before[origin]);
    return edit;
}

QList<int> numbersBelow(qsizetype count)
{
    QList<int> numbers(count);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

void splice(SequenceData& data, int row, qsizetype removed, const SequenceEdit::Steps& inserted)
{
    SequenceEdit::Steps& steps = data.sequences;
    const auto overwritten = std::min(removed, inserted.size());
    std::copy_n(inserted.begin(), overwritten, steps.begin() + row);
    const auto at = row + overwritten;
    if (removed > overwritten)
        steps.remove(at, removed - overwritten);
    if (inserted.size() > overwritten) {
        steps.insert(at, inserted.size() - overwritten, {});
        std::copy(inserted.begin() + overwritten, inserted.end(), steps.begin() + at);
    }
}

qsizetype bytesOf(const SequenceEdit::Steps& steps)
{
    qsizetype sum = 0;
    for (const SequenceDataItem& step : steps)
        sum += qsizetype{sizeof(SequenceDataItem)} + 2 * ListOverhead +
               qsizetype{sizeof(int)} * (step.position.size() + step.speed.size());
    return sum;
}
} // namespace

SequenceEdit SequenceEdit::insertion(const SequenceData& data, int row, const Steps& steps)
{
    SequenceEdit edit = editOf(data, row, 0);
    edit.after = steps;
    edit.origins.fill(NewStep, steps.size());
    return edit;
}

SequenceEdit SequenceEdit::removal(const SequenceData& data, const QList<int>& rows)
{
    if (rows.isEmpty())
        return editOf(data, 0, 0);
    const int first = rows.constFirst();
    const SequenceEdit edit = editOf(data, first, rows.constLast() - first + 1);
    QList<int> kept;
    auto removed = rows.begin();
    for (int i = 0; i < edit.before.size(); ++i) {
        if (*removed == first + i)
            ++removed;
        else
            kept.append(i);
    }
    return rearranged(edit, kept);
}

SequenceEdit SequenceEdit::move(const SequenceData& data, const QList<int>& rows, int distance)
{
    const bool up = distance < 0;
    if (rows.isEmpty() ||
        (up ? rows.constFirst() == 0 : rows.constLast() + 1 == data.sequences.size()))
        return editOf(data, 0, 0);
    const int first = rows.constFirst() + (up ? distance : 0);
    const SequenceEdit edit = editOf(data, first, rows.constLast() - rows.constFirst() + 2);
    QList<int> order = numbersBelow(edit.before.size());
    const auto shift = [&](int old) { order.swapItemsAt(old - first, old - first + distance); };
    if (up)
        std::for_each(rows.begin(), rows.end(), shift);
    else
        std::for_each(rows.rbegin(), rows.rend(), shift);
    return rearranged(edit, order);
}

SequenceEdit SequenceEdit::exchange(const SequenceData& data, int row, int other)
{
    const auto [first, last] = std::minmax(row, other);
    const SequenceEdit edit = editOf(data, first, last - first + 1);
    QList<int> order = numbersBelow(edit.before.size());
    order.swapItemsAt(0, last - first);
    return rearranged(edit, order);
}

SequenceEdit SequenceEdit::change(const SequenceData& data, int row, const SequenceDataItem& step)
{
    SequenceEdit edit = editOf(data, row, 1);
    edit.after = {step};
    edit.origins = {0};
    return edit;
}

SequenceEdit SequenceEdit::typeChange(const SequenceData& data, const QString& type)
{
    SequenceEdit edit = editOf(data, 0, 0);
    edit.typeAfter = type;
    return edit;
}

SequenceEdit SequenceEdit::replacement(const SequenceData& data, const SequenceData& other)
{
    SequenceEdit edit = insertion(data, 0, other.sequences);
    edit.before = data.sequences;
    edit.typeAfter = other.position_type;
    return edit;
}

void SequenceEdit::applyTo(SequenceData& data) const
{
    splice(data, row, before.size(), after);
    data.position_type = typeAfter;
}

void SequenceEdit::revertIn(SequenceData& data) const
{
    splice(data, row, after.size(), before);
    data.position_type = typeBefore;
}

qsizetype SequenceEdit::bytes() const
{
    return qsizetype{sizeof(SequenceEdit)} + bytesOf(before) + bytesOf(after) +
           qsizetype{sizeof(int)} * origins.size();
}

} // namespace vanto
