#include "steptable.h"

#include "fingers.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace
{
/// By finger: the thumb root stands first, as it does on the hand.
constexpr PerFinger<int> ColumnOf{1, 2, 3, 4, 5, 0};
} // namespace

MyQTableWidgetItem::~MyQTableWidgetItem() = default;

StepTable::StepTable(QWidget* parent) : QTableWidget(parent)
{
    // A height of its own for every row would be asked of every cell of a long sequence.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void StepTable::setSteps(const QList<SequenceDataItem>& steps)
{
    const QSignalBlocker quiet(this);
    setUpdatesEnabled(false);
    setRowCount(0);
    setRowCount(static_cast<int>(steps.size()));
    m_ids.resize(steps.size());
    for (quint64& id : m_ids)
        id = ++m_lastId;
    for (int row = 0; row < rowCount(); ++row)
        showPositions(row, steps[row].position);
    setCurrentCell(-1, -1);
    setUpdatesEnabled(true);
}

void StepTable::insertStep(int row, const QList<int>& positions)
{
    const QSignalBlocker quiet(this);
    insertRow(row);
    m_ids.insert(row, ++m_lastId);
    showPositions(row, positions);
}

void StepTable::removeStep(int row)
{
    const QSignalBlocker quiet(this);
    removeRow(row);
    m_ids.removeAt(row);
}

void StepTable::swapSteps(int row, int other)
{
    m_ids.swapItemsAt(row, other);
}

void StepTable::showPositions(int row, const QList<int>& positions)
{
    const QSignalBlocker quiet(this);
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        const auto index = static_cast<qsizetype>(finger);
        const int column = ColumnOf[finger];
        if (index >= positions.size()) {
            delete takeItem(row, column);
            continue;
        }
        if (!item(row, column)) {
            setItem(row, column, new MyQTableWidgetItem);
            item(row, column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        }
        item(row, column)->setText(QString::number(positions[index]));
    }
}

void StepTable::selectSilently(int row)
{
    const QSignalBlocker quiet(this);
    setCurrentCell(row, 0);
}

void StepTable::clearCurrent()
{
    const QSignalBlocker quiet(this);
    clearSelection();
    setCurrentCell(-1, -1);
}

void StepTable::focusInEvent(QFocusEvent* event)
{
    // Without a current cell the view would look for a first one.
    const QScopedValueRollback taking(m_takesFocus, true);
    QTableWidget::focusInEvent(event);
}

QModelIndex StepTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    return m_takesFocus ? QModelIndex() : QTableWidget::moveCursor(action, modifiers);
}

bool StepTable::keyPressed(const QKeyEvent& event)
{
    const int row = currentRow();
    // A key held since before the page came was not meant for a row, which would move the hand.
    if (row < 0 && event.isAutoRepeat())
        return true;
    const bool up = event.key() == Qt::Key_Up;
    if (!up && event.key() != Qt::Key_Down)
        return false;
    const int next = up ? row - 1 : row + 1;
    if (next >= 0 && next < rowCount())
        setCurrentCell(next, 0);
    return true;
}
