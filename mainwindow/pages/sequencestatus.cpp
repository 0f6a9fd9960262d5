#include "sequencestatus.h"

#include "elidedlabel.h"
#include "sequenceeditor.h"
#include "sequenceplayer.h"
#include "stepeditors.h"
#include "stepheader.h"
#include "stepresults.h"
#include "steptable.h"

namespace vanto
{

namespace
{
constexpr int RefreshMs = 250;
constexpr int MsPerSecond = 1000;
/// A shorter wait is over before it can be read.
constexpr int MinRemainingMs = 1000;
} // namespace

SequenceStatus::SequenceStatus(const SequenceEditor* sequence, StepTable* table,
                               const StepEditors* editors, const StepResults* results,
                               const SequencePlayer* player, ElidedLabel* line)
    : m_sequence(sequence),
      m_table(table),
      m_editors(editors),
      m_results(results),
      m_player(player),
      m_line(line)
{
    m_refresh.setInterval(RefreshMs);
    connect(&m_refresh, &QTimer::timeout, this, &SequenceStatus::showPlayed);
    table->header()->setToolTips([this](int row) { return toolTip(row); });
}

void SequenceStatus::markNotSent()
{
    m_notSent = m_table->idOf(m_table->currentRow());
}

void SequenceStatus::clearMark()
{
    m_notSent = StepTable::NoStep;
}

bool SequenceStatus::isNotSent() const
{
    return m_notSent != StepTable::NoStep && m_notSent == m_table->idOf(m_table->currentRow());
}

void SequenceStatus::noteStep(int row)
{
    m_sinceStep.start();
    m_table->setMark(m_table->idOf(row), StepTable::Mark::Playing);
}

void SequenceStatus::update(bool isPlaying)
{
    if (isPlaying) {
        if (!m_refresh.isActive())
            m_refresh.start();
        showPlayed();
        return;
    }
    m_refresh.stop();
    m_sinceStep.invalidate();
    m_table->setMark(isNotSent() ? m_notSent : StepTable::NoStep, StepTable::Mark::NotSent);
    m_line->setText(textOfRow());
}

void SequenceStatus::showPlayed()
{
    m_line->setText(m_player->isPlayForEdit() ? textOfEdit() : textOfRun());
}

QString SequenceStatus::describe(int row) const
{
    const SequenceDataItem step = m_sequence->data().sequences.value(row);
    QStringList speeds;
    for (const int speed : step.speed)
        speeds.append(QString::number(speed));
    return tr("Step %1: delay %2 ms, speeds %3")
        .arg(row + 1)
        .arg(step.delay)
        .arg(speeds.join(QLatin1Char(' ')));
}

QString SequenceStatus::toolTip(int row) const
{
    const QString result = m_results->describe(row);
    return result.isEmpty() ? describe(row) : describe(row) + QLatin1Char('\n') + result;
}

QString SequenceStatus::textOfRun() const
{
    const QString step = tr("Playing step %1 of %2")
                             .arg(m_player->getPlayingSequenceIndex() + 1)
                             .arg(m_table->rowCount());
    if (m_player->rounds() == 0)
        return tr("%1, round %2").arg(step).arg(m_player->round());
    return m_player->rounds() == 1
               ? step
               : tr("%1, round %2 of %3").arg(step).arg(m_player->round()).arg(m_player->rounds());
}

QString SequenceStatus::textOfEdit() const
{
    const int row = m_player->getPlayingSequenceIndex();
    const qint64 delay = m_sequence->data().sequences.value(row).delay;
    const qint64 left = m_sinceStep.isValid() ? delay - m_sinceStep.elapsed() : 0;
    if (left < MinRemainingMs)
        return tr("Moving to step %1").arg(row + 1);
    return tr("Step %1 lasts %2 s more. Stop ends it.")
        .arg(row + 1)
        .arg((left + MsPerSecond - 1) / MsPerSecond);
}

QString SequenceStatus::textOfRow() const
{
    const int row = m_table->currentRow();
    if (row < 0)
        return {};
    if (isNotSent())
        return tr("Not sent; Return sends it. %1").arg(describe(row));
    if (m_editors->hasPreview())
        return tr("A value is not sent; Return sends it. %1").arg(describe(row));
    return describe(row);
}

} // namespace vanto
