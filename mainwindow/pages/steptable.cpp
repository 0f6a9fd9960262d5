#include "steptable.h"

#include "fingers.h"
#include "stepheader.h"

#include <QHash>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSet>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>
#include <memory>
#include <utility>

namespace vanto
{

namespace
{
/// Columns by finger: the thumb root comes first, as on the hand.
constexpr PerFinger<int> ColumnOf{1, 2, 3, 4, 5, 0};

bool extendsSelection(Qt::KeyboardModifiers modifiers)
{
    return modifiers & (Qt::ShiftModifier | Qt::ControlModifier);
}

/// Successive elements of a list.
struct RowRange {
    qsizetype first;
    qsizetype count;
};
/// Removing or inserting more ranges of rows takes longer than moving their cells.
constexpr int MaxRanges = 20;

/// The ranges of `ids` that are not among the others.
QList<RowRange> rangesOnlyIn(const QList<std::uint64_t>& ids, const QList<std::uint64_t>& others)
{
    const QSet<std::uint64_t> known(others.begin(), others.end());
    QList<RowRange> ranges;
    for (qsizetype i = 0; i < ids.size(); ++i) {
        if (known.contains(ids[i]))
            continue;
        if (!ranges.isEmpty() && ranges.constLast().first + ranges.constLast().count == i)
            ++ranges.last().count;
        else
            ranges.append({i, 1});
    }
    return ranges;
}

/// Painting and layout after a change of many rows instead of after each.
class UpdateBlocker
{
public:
    explicit UpdateBlocker(QWidget* widget) : m_widget(widget), m_signals(widget)
    {
        m_widget->setUpdatesEnabled(false);
    }
    ~UpdateBlocker() { m_widget->setUpdatesEnabled(true); }
    UpdateBlocker(const UpdateBlocker&) = delete;
    UpdateBlocker& operator=(const UpdateBlocker&) = delete;

private:
    QWidget* m_widget;
    QSignalBlocker m_signals;
};
} // namespace

MyQTableWidgetItem::~MyQTableWidgetItem() = default;

StepTable::StepTable(QWidget* parent) : QTableWidget(parent), m_header(new StepHeader(this))
{
    setVerticalHeader(m_header);
    connect(m_header, &StepHeader::sig_extended, this, &StepTable::extendTo);
}

void StepTable::replaceSteps(int row, qsizetype count, const QList<std::uint64_t>& ids,
                             const QList<SequenceDataItem>& steps)
{
    const UpdateBlocker blocker(this);
    if (steps.size() > 1)
        scheduleDelayedItemsLayout(); // each changed cell would resize the first column
    replaceRows(row, m_ids.mid(row, count), ids);
    m_ids.remove(row, count);
    m_ids.insert(row, ids.size(), NoStep);
    std::copy(ids.begin(), ids.end(), m_ids.begin() + row);
    for (int i = 0; i < steps.size(); ++i)
        showPositions(row + i, steps[i].position);
    showMark();
}

/// Most rows keep their steps, so that few cells change. The cells are changed by the caller.
void StepTable::replaceRows(int row, const QList<std::uint64_t>& before,
                            const QList<std::uint64_t>& after)
{
    QList<RowRange> removed = rangesOnlyIn(before, after);
    QList<RowRange> added = rangesOnlyIn(after, before);
    if (!removed.isEmpty() && removed.constFirst().count == m_ids.size())
        setCurrentCell(-1, -1); // another sequence
    if (removed.size() + added.size() > MaxRanges) {
        moveCells(row, before, after);
        return;
    }
    for (auto range = removed.crbegin(); range != removed.crend(); ++range)
        model()->removeRows(row + static_cast<int>(range->first), static_cast<int>(range->count));
    for (const RowRange& range : added)
        model()->insertRows(row + static_cast<int>(range.first), static_cast<int>(range.count));
}

/// Adds or removes only the last rows, and moves the cells of the steps that remain.
void StepTable::moveCells(int row, const QList<std::uint64_t>& before,
                          const QList<std::uint64_t>& after)
{
    setCurrentCell(-1, -1);
    clearSelection();
    QHash<std::uint64_t, int> newRows;
    newRows.reserve(after.size());
    for (int i = 0; i < after.size(); ++i)
        newRows.insert(after[i], row + i);
    QList<std::pair<int, QTableWidgetItem*>> moved; // new row, cell
    {
        // The view is updated as a whole; it need not know each cell.
        const QSignalBlocker blocker(model());
        for (int i = 0; i < before.size(); ++i) {
            const int newRow = newRows.value(before[i], -1);
            if (newRow < 0 || newRow == row + i)
                continue;
            for (int column = 0; column < columnCount(); ++column)
                moved.append({newRow, takeItem(row + i, column)});
        }
    }
    const int added = static_cast<int>(after.size() - before.size());
    const int end = row + static_cast<int>(std::min(before.size(), after.size()));
    if (added > 0)
        model()->insertRows(end, added);
    else if (added < 0)
        model()->removeRows(end, -added);
    const QSignalBlocker blocker(model());
    for (qsizetype i = 0; i < moved.size(); ++i)
        setItem(moved[i].first, static_cast<int>(i) % columnCount(), moved[i].second);
}

int StepTable::columnOf(std::uint8_t finger)
{
    return ColumnOf[finger];
}

void StepTable::showPositions(int row, const QList<int>& positions)
{
    const QSignalBlocker blocker(this);
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        const qsizetype index = finger;
        const int column = columnOf(finger);
        if (index >= positions.size()) {
            delete takeItem(row, column);
            continue;
        }
        const QString text = QString::number(positions[index]);
        if (item(row, column) && item(row, column)->text() == text)
            continue;
        // A new item, because the model searches all cells for one whose row has moved.
        auto* cell = new MyQTableWidgetItem(text);
        cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setItem(row, column, cell);
    }
}

void StepTable::selectSilently(int row)
{
    const QSignalBlocker blocker(this);
    setCurrentCell(row, 0);
}

void StepTable::selectSilently(const QList<int>& rows)
{
    const QSignalBlocker blocker(this);
    if (rows.isEmpty())
        return;
    m_anchor = rows.constFirst();
    setCurrentCell(m_anchor, 0);
    QItemSelection all; // one range for successive rows
    for (qsizetype first = 0, next = 1; first < rows.size(); first = next++) {
        while (next < rows.size() && rows[next] == rows[next - 1] + 1)
            ++next;
        all.select(model()->index(rows[first], 0),
                   model()->index(rows[next - 1], columnCount() - 1));
    }
    selectionModel()->select(all, QItemSelectionModel::ClearAndSelect);
}

void StepTable::clearCurrent()
{
    const QSignalBlocker blocker(this);
    clearSelection();
    setCurrentCell(-1, -1);
}

QList<int> StepTable::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows.append(index.row());
    if (rows.isEmpty() && currentRow() >= 0)
        rows.append(currentRow());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void StepTable::setMark(std::uint64_t step, Mark mark)
{
    m_markedStep = mark == Mark::None ? NoStep : step;
    m_mark = m_markedStep == NoStep ? Mark::None : mark;
    showMark();
}

/// The number of a row is text of the header only if it has a mark; otherwise Qt numbers the rows.
void StepTable::showMark()
{
    const QSignalBlocker blocker(this);
    const int row = m_mark == Mark::None ? -1 : rowOf(m_markedStep);
    for (int r = 0; m_markedRow >= 0 && r < rowCount(); ++r)
        if (verticalHeaderItem(r)) // its row may have moved
            delete takeVerticalHeaderItem(r);
    m_markedRow = row;
    if (row < 0)
        return;
    const bool playing = m_mark == Mark::Playing;
    auto number = std::make_unique<QTableWidgetItem>(QString::number(row + 1) +
                                                     QLatin1String(playing ? "" : " *"));
    if (playing)
        number->setIcon(style()->standardIcon(QStyle::SP_MediaPlay));
    setVerticalHeaderItem(row, number.release());
}

QModelIndex StepTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Without a current cell the view would search for a first one, even when it gets the focus.
    if (currentRow() < 0)
        return {};
    // Another column of the same row would send it, too.
    const QModelIndex next = QTableWidget::moveCursor(action, modifiers);
    const bool isInRow = next.row() == currentRow();
    return isInRow && isNotSent(currentRow()) ? currentIndex() : next;
}

/// Only Shift and Ctrl extend the selection. Without an event the view would use the keys that
/// are pressed at the moment, also when the program selects a row.
QItemSelectionModel::SelectionFlags StepTable::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const
{
    const bool isInput = event && event->isInputEvent();
    if (isInput && extendsSelection(static_cast<const QInputEvent*>(event)->modifiers()))
        return QTableWidget::selectionCommand(index, event);
    return index.isValid() || !event
               ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
               : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
}

bool StepTable::isNotSent(int row) const
{
    return m_mark == Mark::NotSent && idOf(row) == m_markedStep;
}

void StepTable::mousePressEvent(QMouseEvent* event)
{
    const int row = rowAt(event->position().toPoint().y());
    if (extendsSelection(event->modifiers())) {
        if (row >= 0)
            extendTo(row, event->modifiers());
        return;
    }
    // A double click sends the step, whichever its column: the first click must not play it.
    const bool isMarked = row == currentRow() && isNotSent(row);
    const QSignalBlocker blocker(isMarked ? this : nullptr);
    QTableWidget::mousePressEvent(event);
    if (isMarked)
        setCurrentCell(row, 0);
}

/// Selecting a row moves the hand, so the mouse selects none while it moves with a button pressed.
void StepTable::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton)
        QTableWidget::mouseMoveEvent(event);
}

void StepTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (extendsSelection(event->modifiers()))
        mousePressEvent(event);
    else
        QTableWidget::mouseDoubleClickEvent(event);
}

/// With Shift or Ctrl, keys such as Page Down extend the selection, too. Other keys could make a
/// row current that is not selected.
void StepTable::keyPressEvent(QKeyEvent* event)
{
    if (!extendsSelection(event->modifiers())) {
        QTableWidget::keyPressEvent(event);
        return;
    }
    const int row = rowOfKey(event->key());
    if (row >= 0 && row != currentRow())
        extendTo(row, Qt::ShiftModifier);
    else if (event->matches(QKeySequence::SelectAll))
        selectAll();
    else if (row < 0)
        event->ignore();
}

/// -1 if the key does not lead to a row.
int StepTable::rowOfKey(int key)
{
    switch (key) {
    case Qt::Key_Home:
        return rowCount() > 0 ? 0 : -1;
    case Qt::Key_End:
        return rowCount() - 1;
    case Qt::Key_PageUp:
        return moveCursor(MovePageUp, Qt::NoModifier).row();
    case Qt::Key_PageDown:
        return moveCursor(MovePageDown, Qt::NoModifier).row();
    default:
        return -1;
    }
}

/// With Shift the rows from the one at which the extension began to `row` are selected; with Ctrl
/// `row` is added or removed. The current row is always one of the selected rows: what acts on one
/// row must not act on another than what acts on the selection.
void StepTable::extendTo(int row, Qt::KeyboardModifiers modifiers)
{
    const bool isRange = modifiers & Qt::ShiftModifier && currentRow() >= 0;
    if (!isRange)
        m_anchor = row;
    else if (selectedRows().size() < 2 || !selectedRows().contains(m_anchor))
        m_anchor = currentRow();
    const auto [first, last] = std::minmax({std::min(m_anchor, rowCount() - 1), row});
    const QItemSelection rows(model()->index(first, 0), model()->index(last, columnCount() - 1));
    {
        const QSignalBlocker blocker(this);
        selectionModel()->setCurrentIndex(model()->index(row, 0), QItemSelectionModel::NoUpdate);
        selectionModel()->select(rows, isRange ? QItemSelectionModel::ClearAndSelect
                                               : QItemSelectionModel::Toggle);
        if (!selectionModel()->hasSelection())
            selectionModel()->select(rows, QItemSelectionModel::Select);
        if (!selectedRows().contains(row)) {
            m_anchor = selectedRows().constFirst();
            selectionModel()->setCurrentIndex(model()->index(m_anchor, 0),
                                              QItemSelectionModel::NoUpdate);
        }
    }
    emit sig_extended();
}

bool StepTable::handleKeyPress(const QKeyEvent& event)
{
    const bool up = event.key() == Qt::Key_Up;
    if (!up && event.key() != Qt::Key_Down)
        return false;
    const int row = currentRow();
    // A key held since before the page was shown must not select a row, which would move the hand.
    if (row < 0 && event.isAutoRepeat())
        return true;
    if (event.modifiers() & Qt::AltModifier)
        return true; // moves rows, see SequenceActions
    const int next = up ? row - 1 : row + 1;
    if (next < 0 || next >= rowCount())
        return true;
    if (!extendsSelection(event.modifiers()))
        setCurrentCell(next, 0);
    else if (row >= 0)
        extendTo(next, Qt::ShiftModifier);
    return true;
}

} // namespace vanto
