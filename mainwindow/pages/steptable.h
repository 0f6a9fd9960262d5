#pragma once

#include "sequencedata.h"

#include <QTableWidget>

#include <cstdint>

namespace vanto
{

class StepHeader;

class MyQTableWidgetItem : public QTableWidgetItem
{
public:
    using QTableWidgetItem::QTableWidgetItem;
    ~MyQTableWidgetItem() override;
};

/// The steps of a sequence, one per row. Selecting a row moves the hand, so neither focus
/// changes nor typing make a row current, and the selection is extended without the signals of a
/// new current row. The functions below block the signals that Qt emits when they make another row
/// current.
class StepTable : public QTableWidget
{
    Q_OBJECT
public:
    enum class Mark { None, NotSent, Playing };

    explicit StepTable(QWidget* parent = nullptr);

    /// Replaces `count` rows by `steps`, which get these ids. Clears the selection if all rows are
    /// replaced by steps with other ids.
    void replaceSteps(int row, qsizetype count, const QList<std::uint64_t>& ids,
                      const QList<SequenceDataItem>& steps);
    static int columnOf(std::uint8_t finger);
    /// Missing values are shown empty.
    void showPositions(int row, const QList<int>& positions);
    /// Makes the row current without a signal, and selects only this row.
    void selectSilently(int row);
    /// Selects these rows without a signal; the first becomes current.
    void selectSilently(const QList<int>& rows);
    void clearCurrent();
    /// In ascending order; if none is selected, the current row.
    QList<int> selectedRows() const;

    /// The id of a step, which stays the same when its row moves; NoStep for no row.
    std::uint64_t idOf(int row) const { return m_ids.value(row, NoStep); }
    QList<std::uint64_t> ids(int row, qsizetype count) const { return m_ids.mid(row, count); }
    /// -1 if the step does not exist.
    int rowOf(std::uint64_t id) const { return static_cast<int>(m_ids.indexOf(id)); }
    /// A new id, never used before.
    std::uint64_t takeId() { return ++m_lastId; }
    /// The id that takeId() returns next.
    std::uint64_t nextId() const { return m_lastId + 1; }
    static constexpr std::uint64_t NoStep = 0;

    /// Marks the number of a step. Only one step is marked.
    void setMark(std::uint64_t step, Mark mark);
    std::uint64_t markedStep() const { return m_markedStep; }
    Mark mark() const { return m_mark; }
    StepHeader* header() const { return m_header; }

    /// Moves between rows on Up and Down; returns whether the key is consumed.
    bool handleKeyPress(const QKeyEvent& event);
    void keyboardSearch(const QString&) override {}

signals:
    /// The user has extended the selection; another row may have become current by that.
    void sig_extended();

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void extendTo(int row, Qt::KeyboardModifiers modifiers);
    int rowOfKey(int key);
    void replaceRows(int row, const QList<std::uint64_t>& before,
                     const QList<std::uint64_t>& after);
    void moveCells(int row, const QList<std::uint64_t>& before, const QList<std::uint64_t>& after);
    bool isNotSent(int row) const;
    void showMark();

    StepHeader* m_header;
    QList<std::uint64_t> m_ids; ///< of the rows
    std::uint64_t m_lastId = NoStep;
    std::uint64_t m_markedStep = NoStep;
    Mark m_mark = Mark::None;
    int m_markedRow = -1; ///< whose number shows the mark
    int m_anchor = 0;     ///< the row at which the extension of the selection began
};

} // namespace vanto
