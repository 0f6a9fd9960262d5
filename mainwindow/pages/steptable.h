#pragma once

#include "sequencedata.h"

#include <QTableWidget>

#include <cstdint>

namespace vanto
{

class MyQTableWidgetItem : public QTableWidgetItem
{
public:
    using QTableWidgetItem::QTableWidgetItem;
    ~MyQTableWidgetItem() override;
};

/// The steps of a sequence, one per row. Selecting a row moves the hand, so neither focus
/// changes nor typing make a row current. The functions below block the signals that
/// Qt emits when they make another row current.
class StepTable : public QTableWidget
{
    Q_OBJECT
public:
    explicit StepTable(QWidget* parent = nullptr);

    void setSteps(const QList<SequenceDataItem>& steps);
    void insertStep(int row, const QList<int>& positions);
    void removeStep(int row);
    /// Swaps the ids of two steps; does not update the displayed values.
    void swapIds(int row, int other);
    /// Missing values are shown empty.
    void showPositions(int row, const QList<int>& positions);
    /// Makes the row current without a signal.
    void selectSilently(int row);
    void clearCurrent();
    /// The id of a step, which stays the same when its row moves; NoStep for no row.
    std::uint64_t idOf(int row) const { return m_ids.value(row, NoStep); }
    /// -1 if the step no longer exists.
    int rowOf(std::uint64_t id) const { return static_cast<int>(m_ids.indexOf(id)); }
    static constexpr std::uint64_t NoStep = 0;

    /// Moves between rows on Up and Down; returns whether the key is consumed.
    bool handleKeyPress(const QKeyEvent& event);
    void keyboardSearch(const QString&) override {}

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    QList<std::uint64_t> m_ids; ///< of the rows
    std::uint64_t m_lastId = NoStep;
};

} // namespace vanto
