#pragma once

#include "sequencedata.h"

#include <QTableWidget>

class MyQTableWidgetItem : public QTableWidgetItem
{
public:
    using QTableWidgetItem::QTableWidgetItem;
    ~MyQTableWidgetItem() override;
};

/// The steps of a sequence, a row each. Selecting a row moves the hand, so a row becomes current
/// only when the person or the program means it: not by getting the focus, not by typing, and the
/// changes below tell nobody when Qt makes another row current in the course of them.
class StepTable : public QTableWidget
{
    Q_OBJECT
public:
    explicit StepTable(QWidget* parent = nullptr);

    void setSteps(const QList<SequenceDataItem>& steps);
    void insertStep(int row, const QList<int>& positions);
    void removeStep(int row);
    void swapSteps(int row, int other);
    void setValue(int row, int finger, int value);
    /// Makes the row current without a word.
    void showStep(int row);
    void clearCurrent();
    QPersistentModelIndex rowIndex(int row) const { return model()->index(row, 0); }

    void keyboardSearch(const QString&) override {}

protected:
    void focusInEvent(QFocusEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void fillRow(int row, const QList<int>& positions);

    bool m_takesFocus = false;
};
