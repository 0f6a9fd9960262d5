#include "steptable.h"

#include "fingers.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace vanto
{

namespace
{
/// Columns by finger: the thumb root comes first, as on the hand.
constexpr PerFinger<int> ColumnOf{1, 2, 3, 4, 5, 0};
} // namespace

MyQTableWidgetItem::~MyQTableWidgetItem() = default;

StepTable::StepTable(QWidget* parent) : QTableWidget(parent)
{
    // Individual row heights would query every cell of a long sequence.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void StepTable::setSteps(const QList<SequenceDataItem>& steps)
{
    const QSignalBlocker blocker(this);
    setUpdatesEnabled(false);
    setRowCount(0);
    setRowCount(static_cast<int>(steps.size()));
    m_ids.resize(steps.size());
    for (std::uint64_t& id : m_ids)
        id = ++m_lastId;
    for (int row = 0; row < rowCount(); ++row)
        showPositions(row, steps[row].position);
    setCurrentCell(-1, -1);
    setUpdatesEnabled(true);
}

void StepTable::insertStep(int row, const QList<int>& positions)
{
    const QSignalBlocker blocker(this);
    insertRow(row);
    m_ids.insert(row, ++m_lastId);
    showPositions(row, positions);
}

void StepTable::removeStep(int row)
{
    const QSignalBlocker blocker(this);
    removeRow(row);
    m_ids.removeAt(row);
}

void StepTable::swapIds(int row, int other)
{
    m_ids.swapItemsAt(row, other);
}

void StepTable::showPositions(int row, const QList<int>& positions)
{
    const QSignalBlocker blocker(this);
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        const auto index = static_cast<qsizetype>(finger);
        const int column = ColumnOf[finger];
        if (index >= positions.size()) {
            delete takeItem(row, column);
            continue;
        }
        const QString text = QString::number(positions[index]);
        if (item(row, column)) {
            item(row, column)->setText(text);
            continue;
        }
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

void StepTable::clearCurrent()
{
    const QSignalBlocker blocker(this);
    clearSelection();
    setCurrentCell(-1, -1);
}

QModelIndex StepTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Without a current cell the view would search for a first one, even when it gets the focus.
    return currentRow() < 0 ? QModelIndex() : QTableWidget::moveCursor(action, modifiers);
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
    const int next = up ? row - 1 : row + 1;
    if (next >= 0 && next < rowCount())
        setCurrentCell(next, 0);
    return true;
}

} // namespace vanto
