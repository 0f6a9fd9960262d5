// How the monkey edits and plays a sequence.

#include "fingers.h"
#include "monkey.h"
#include "sequencedraft.h"
#include "sequencemanager.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>

#include <array>

namespace vanto
{

namespace
{
constexpr int MaxRows = 100;            ///< of a sequence; more are removed
constexpr int Drafts = 3;               ///< of earlier sessions
constexpr int LongestPosition = 70'000; ///< out of range in some cases

/// Clicks on a row with Ctrl, which selects it without playing it.
void extendSelection(const QTableWidget& table, int row)
{
    const QPointF place(1, table.rowViewportPosition(row) + 1);
    QMouseEvent press(QEvent::MouseButtonPress, place, table.viewport()->mapToGlobal(place),
                      Qt::LeftButton, Qt::LeftButton, Qt::ControlModifier);
    QApplication::sendEvent(table.viewport(), &press);
}
} // namespace

/// Unsaved work of earlier sessions, which the Sequence page offers when it is first shown.
void Monkey::leaveDrafts()
{
    for (int i = 0; i < Drafts; ++i) {
        QFile file(randomSequenceFile());
        SequenceData data;
        if (file.open(QFile::ReadOnly) && data.fromJSON(file.readAll()))
            SequenceDraft(SequenceDraft::userFolder()).write(data, file.fileName());
    }
}

QString Monkey::randomSequenceFile()
{
    const QDir examples(QStringLiteral(VANTO_EXAMPLES));
    const QStringList files = examples.entryList(QDir::Files);
    const QString name = files.value(randomBelow(static_cast<int>(files.size())));
    // A copy, because the window proposes to save a sequence where it comes from.
    QString copy = QDir::current().absoluteFilePath(name);
    QFile::copy(examples.absoluteFilePath(name), copy); // unless it exists
    return copy;
}

void Monkey::selectRow()
{
    auto* table = m_driver.find<QTableWidget>("tableWidget_Seq");
    if (!table->isVisible() || !table->isEnabled())
        return;
    if (table->rowCount() == 0)
        m_driver.click("pushButton_SeqLoad");
    else
        table->setCurrentCell(randomBelow(table->rowCount()), 0);
}

void Monkey::stopSequence()
{
    m_driver.click("pushButton_SeqStop");
}

/// Uses the Edit menu, which only changes data, and extends the selection, which plays nothing.
void Monkey::editSequence()
{
    constexpr std::array names{
        "action_Undo",           "action_Redo",         "action_Cut_Steps",
        "action_Copy_Steps",     "action_Paste_Steps",  "action_Delete_Step",
        "action_Duplicate_Step", "action_Move_Step_Up", "action_Move_Step_Down"};
    auto* pages = m_driver.find<QTabWidget>("tabWidget");
    auto* table = m_driver.find<QTableWidget>("tableWidget_Seq");
    if (pages->isEnabled() && randomBelow(2) == 0)
        pages->setCurrentIndex(SequenceTab);
    if (!table->isVisible() || !table->isEnabled())
        return;
    if (table->rowCount() == 0) {
        m_driver.click("pushButton_SeqLoad");
        return;
    }
    if (table->rowCount() > MaxRows)
        table->selectAll();
    else
        extendSelection(*table, randomBelow(table->rowCount()));
    const QString name =
        table->rowCount() > MaxRows
            ? QStringLiteral("action_Delete_Step")
            : QLatin1String(names[static_cast<std::size_t>(randomBelow(names.size()))]);
    m_counts[QStringLiteral("edit of a step")] += m_driver.find<QAction>(name)->isEnabled() ? 1 : 0;
    m_driver.trigger(name);
}

/// Inserts a step before another one, which plays it afterwards.
void Monkey::insertBefore()
{
    auto* action = m_driver.find<QAction>(QStringLiteral("action_Insert_Before"));
    m_counts[QStringLiteral("insertion before")] += action->isEnabled() ? 1 : 0;
    action->trigger();
}

/// Types a target of the current step and presses Return, which moves the finger.
void Monkey::typeTarget()
{
    auto* field =
        m_driver.find<QLineEdit>(QStringLiteral("lineEdit_SeqPos%1").arg(randomBelow(FingerCount)));
    if (!field->isVisible() || !field->isEnabled() || field->isReadOnly())
        return;
    ++m_counts[QStringLiteral("typed target of a step")];
    field->setFocus();
    field->setText(randomBelow(4) == 0 ? randomText()
                                       : QString::number(randomBelow(LongestPosition)));
    field->setModified(true);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(field, &press);
}

/// The number of rounds of a run, also 0, which is without end.
void Monkey::changeRepetition()
{
    auto* rounds = m_driver.find<QSpinBox>(QStringLiteral("spinBox_SeqRepeat"));
    if (rounds->isVisible() && rounds->isEnabled())
        rounds->setValue(randomBelow(4));
}

} // namespace vanto
