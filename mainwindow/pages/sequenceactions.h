#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>

class QAction;
class QMenu;
class QMenuBar;

namespace vanto
{

class SequenceEditor;
class StatusReporter;
class StepTable;

/// The Edit menu. Its actions change the sequence without sending anything, except for Insert
/// Before, which the page carries out. The keys of the rows work only while the table has the
/// focus.
class SequenceActions : public QObject
{
    Q_OBJECT
public:
    SequenceActions(SequenceEditor* sequence, StepTable* table, QObject* parent);

    void setReporter(StatusReporter* reporter) { m_reporter = reporter; }
    /// Adds the menu before the action of another one.
    void addMenu(QMenuBar* bar, QAction* before);
    /// Adds actions of others at the end of the menu. To be called before addMenu().
    void append(const QList<QAction*>& actions);
    void setEnabled(bool enabled);

    void deleteSteps();
    /// By one row, up (-1) or down (1).
    void moveSteps(int distance);

signals:
    /// The sequence is about to be changed: what is being typed belongs to it as it is now.
    void sig_starting();
    /// The sequence has been changed. `rows` are the steps concerned.
    void sig_done(QList<int> rows);
    void sig_insertBefore();

private:
    QAction* add(const QString& name, const QString& text, const QKeySequence& key,
                 void (SequenceActions::*slot)());
    QAction* addForRows(const QString& name, const QString& text, const QKeySequence& key,
                        void (SequenceActions::*slot)());
    void update();
    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void duplicate();
    void insertBefore() { emit sig_insertBefore(); }
    void moveUp() { moveSteps(-1); }
    void moveDown() { moveSteps(1); }
    void remove(const QString& text);
    /// Selects the rows from `row` on.
    void finish(int row, qsizetype count);

    SequenceEditor* m_sequence;
    StepTable* m_table;
    StatusReporter* m_reporter = nullptr;
    bool m_enabled = false;
    QList<QAction*> m_actions; ///< in the order of the menu; nullptr for a separator
    QList<QAction*> m_rowActions;
    QAction* m_undo;
    QAction* m_redo;
    QAction* m_paste;
    QAction* m_insertBefore;
};

} // namespace vanto
