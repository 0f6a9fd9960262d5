#include "sequenceactions.h"

#include "sequenceeditor.h"
#include "statusreporter.h"
#include "stepclipboard.h"
#include "steptable.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <numeric>

namespace vanto
{

namespace
{
QList<int> rowsFrom(int row, qsizetype count)
{
    QList<int> rows(count);
    std::iota(rows.begin(), rows.end(), row);
    return rows;
}

/// "&Undo" with the name of the change, in which "&" is no mnemonic.
void setName(QAction* action, const QString& verb, const QString& change)
{
    QString name = change;
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    //: "&Undo" or "&Redo", and the name of the change
    action->setText(name.isEmpty() ? verb : SequenceActions::tr("%1 %2").arg(verb, name));
}
} // namespace

SequenceActions::SequenceActions(SequenceEditor* sequence, StepTable* table, QObject* parent)
    : QObject(parent), m_sequence(sequence), m_table(table)
{
    const auto key = [](QKeyCombination keys) { return QKeySequence(keys); };
    using A = SequenceActions;
    m_undo = add(QStringLiteral("action_Undo"), {}, key(Qt::CTRL | Qt::Key_Z), &A::undo);
    m_redo =
        add(QStringLiteral("action_Redo"), {}, key(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), &A::redo);
    m_actions.append(nullptr);
    addForRows(QStringLiteral("action_Cut_Steps"), tr("Cu&t"), QKeySequence::Cut, &A::cut);
    addForRows(QStringLiteral("action_Copy_Steps"), tr("&Copy"), QKeySequence::Copy, &A::copy);
    m_paste = addForRows(QStringLiteral("action_Paste_Steps"), tr("&Paste"), QKeySequence::Paste,
                         &A::paste);
    addForRows(QStringLiteral("action_Delete_Step"), tr("De&lete"), QKeySequence::Delete,
               &A::deleteSteps);
    m_actions.append(nullptr);
    m_insertBefore = addForRows(QStringLiteral("action_Insert_Before"), tr("&Insert Before"),
                                key(Qt::CTRL | Qt::SHIFT | Qt::Key_I), &A::insertBefore);
    addForRows(QStringLiteral("action_Duplicate_Step"), tr("&Duplicate"), key(Qt::CTRL | Qt::Key_D),
               &A::duplicate);
    addForRows(QStringLiteral("action_Move_Step_Up"), tr("Move &Up"), key(Qt::ALT | Qt::Key_Up),
               &A::moveUp);
    addForRows(QStringLiteral("action_Move_Step_Down"), tr("Move Do&wn"),
               key(Qt::ALT | Qt::Key_Down), &A::moveDown);
    m_rowActions.removeOne(m_paste);
    m_rowActions.removeOne(m_insertBefore);
    connect(&m_sequence->history(), &QUndoStack::indexChanged, this, &SequenceActions::update);
    // Unlike the signals of the table, those of its selection are never blocked.
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SequenceActions::update);
    update();
}

QAction* SequenceActions::add(const QString& name, const QString& text, const QKeySequence& key,
                              void (SequenceActions::*slot)())
{
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, slot);
    m_actions.append(action);
    return action;
}

QAction* SequenceActions::addForRows(const QString& name, const QString& text,
                                     const QKeySequence& key, void (SequenceActions::*slot)())
{
    QAction* action = add(name, text, key, slot);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setAutoRepeat(slot == &SequenceActions::moveUp || slot == &SequenceActions::moveDown);
    m_table->addAction(action);
    m_rowActions.append(action);
    return action;
}

void SequenceActions::addMenu(QMenuBar* bar, QAction* before)
{
    auto* menu = new QMenu(tr("&Edit"), bar);
    menu->setObjectName(QStringLiteral("menu_Edit"));
    bar->insertMenu(before, menu);
    for (QAction* action : m_actions)
        action ? menu->addAction(action) : void(menu->addSeparator());
}

void SequenceActions::append(const QList<QAction*>& actions)
{
    m_actions.append(nullptr);
    m_actions.append(actions);
}

void SequenceActions::setEnabled(bool enabled)
{
    m_enabled = enabled;
    update();
}

void SequenceActions::update()
{
    const QUndoStack& history = m_sequence->history();
    setName(m_undo, tr("&Undo"), history.undoText());
    setName(m_redo, tr("&Redo"), history.redoText());
    m_undo->setEnabled(m_enabled && history.canUndo());
    m_redo->setEnabled(m_enabled && history.canRedo());
    m_paste->setEnabled(m_enabled);
    m_insertBefore->setEnabled(m_enabled);
    const bool hasRows = m_table->currentRow() >= 0 || m_table->selectionModel()->hasSelection();
    for (QAction* action : m_rowActions)
        action->setEnabled(m_enabled && hasRows);
}

void SequenceActions::finish(int row, qsizetype count)
{
    emit sig_done(row < 0 ? QList<int>() : rowsFrom(row, count));
}

void SequenceActions::undo()
{
    emit sig_starting();
    finish(m_sequence->undo(), 1);
}

void SequenceActions::redo()
{
    emit sig_starting();
    finish(m_sequence->redo(), 1);
}

void SequenceActions::remove(const QString& text)
{
    emit sig_starting();
    const QList<int> rows = m_table->selectedRows();
    if (rows.isEmpty())
        return;
    m_sequence->remove(rows, text);
    finish(std::min(rows.constFirst(), m_table->rowCount() - 1), 1);
}

void SequenceActions::deleteSteps()
{
    remove(tr("delete of %1"));
}

void SequenceActions::copy()
{
    emit sig_starting();
    StepClipboard::set(m_sequence->part(m_table->selectedRows()));
}

void SequenceActions::cut()
{
    copy();
    remove(tr("cut of %1"));
}

void SequenceActions::paste()
{
    emit sig_starting();
    const auto steps = StepClipboard::steps();
    if (!steps) {
        m_reporter->showError(tr("There are no steps on the clipboard."));
        return;
    }
    if (!m_sequence->isEmpty() && steps->position_type != m_sequence->data().position_type) {
        m_reporter->showError(steps->position_type == SequenceData::POS_TYPE_ANGLE
                                  ? tr("The steps on the clipboard have angles, not positions.")
                                  : tr("The steps on the clipboard have positions, not angles."));
        return;
    }
    const QList<int> selected = m_table->selectedRows();
    const int row = selected.isEmpty() ? m_table->rowCount() : selected.constLast() + 1;
    m_sequence->insert(row, *steps, tr("paste of %1"));
    finish(row, steps->sequences.size());
}

void SequenceActions::duplicate()
{
    emit sig_starting();
    const QList<int> rows = m_table->selectedRows();
    if (rows.isEmpty())
        return;
    const int row = rows.constLast() + 1;
    m_sequence->insert(row, m_sequence->part(rows), tr("duplicate of %1"));
    finish(row, rows.size());
}

void SequenceActions::moveSteps(int distance)
{
    emit sig_starting();
    QList<int> rows = m_table->selectedRows();
    if (rows.isEmpty() || !m_sequence->move(rows, distance))
        return;
    for (int& row : rows)
        row += distance;
    emit sig_done(rows);
}

} // namespace vanto
