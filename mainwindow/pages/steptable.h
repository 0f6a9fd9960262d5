#pragma once

#include "sequencedata.h"

#include <QTableWidget>

namespace vanto
{

class MyQTableWidgetItem : public QTableWidgetItem
{
public:
    using QTableWidgetItem::QTableWidgetItem;
    ~MyQTableWidgetItem() override;
};

/// The steps of a sequence, a row each. Selecting a row moves the hand, so a row becomes current
/// only when the user or the program means it: not by getting the focus, not by typing. The changes
/// below emit no signal when Qt makes another row current in the course of them.
class StepTable : public QTableWidget
{
    Q_OBJECT
public:
    explicit StepTable(QWidget* parent = nullptr);

    void setSteps(const QList<SequenceDataItem>& steps);
    void insertStep(int row, const QList<int>& positions);
    void removeStep(int row);
    /// Of two steps that have changed places; the rows still show what they showed.
    void swapIds(int row, int other);
    /// What a step lacks is shown empty.
    void showPositions(int row, const QList<int>& positions);
    /// Makes the row current without a signal.
    void selectSilently(int row);
    void clearCurrent();
    /// What a step is known by, wherever its row goes; NoStep of no row.
    quint64 idOf(int row) const { return m_ids.value(row, NoStep); }
    /// -1 when the step is gone.
    int rowOf(quint64 id) const { return static_cast<int>(m_ids.indexOf(id)); }
    static constexpr quint64 NoStep = 0;

    /// Up and Down go from row to row. Whether the key is consumed.
    bool keyPressed(const QKeyEvent& event);
    void keyboardSearch(const QString&) override {}

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    QList<quint64> m_ids; ///< of the rows
    quint64 m_lastId = NoStep;
};

} // namespace vanto
