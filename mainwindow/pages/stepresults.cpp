#include "stepresults.h"

#include "motionguard.h"
#include "sequenceeditor.h"
#include "sequenceplayer.h"
#include "steptable.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int SchemaVersion = 1;
} // namespace

StepResults::StepResults(const SequenceEditor* sequence, const StepTable* table,
                         SequencePlayer* player, QObject* parent)
    : QObject(parent),
      m_sequence(sequence),
      m_table(table),
      m_copyText(addAction(QStringLiteral("action_Copy_Peaks_Text"), tr("Copy Peaks as Te&xt"),
                           &StepResults::text)),
      m_copyJson(addAction(QStringLiteral("action_Copy_Peaks_JSON"), tr("Copy Peaks as &JSON"),
                           &StepResults::json))
{
    const auto* const collector = new PeakCollector(player);
    connect(collector, &PeakCollector::sig_started, this, &StepResults::begin);
    connect(collector, &PeakCollector::sig_stepEnded, this, &StepResults::add);
    connect(sequence, &SequenceEditor::sig_changed, this, &StepResults::updateActions);
    updateActions();
}

QAction* StepResults::addAction(const QString& name, const QString& text,
                                QString (StepResults::*content)() const)
{
    auto* const action = new QAction(text, this);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this,
            [this, content] { QGuiApplication::clipboard()->setText((this->*content)()); });
    return action;
}

void StepResults::begin()
{
    m_results.clear();
    m_positionType = m_sequence->data().position_type;
    updateActions();
}

void StepResults::add(const StepPeaks& peaks)
{
    const auto step = m_sequence->data().sequences.value(peaks.step);
    Result& result = m_results[m_table->idOf(peaks.step)];
    result.played = step;
    result.peaks.milliseconds = std::max(result.peaks.milliseconds, peaks.milliseconds);
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        result.peaks.currents[finger] =
            std::max(result.peaks.currents[finger], peaks.currents[finger]);
    ++result.rounds;
    updateActions();
}

const StepResults::Result* StepResults::resultOf(int row) const
{
    const SequenceData& data = m_sequence->data();
    const auto result = m_results.constFind(m_table->idOf(row));
    const bool isSame = result != m_results.constEnd() && data.position_type == m_positionType &&
                        data.sequences.value(row) == result->played;
    return isSame ? &*result : nullptr;
}

/// Also after a change that leaves no result, because looking through a long sequence takes time.
void StepResults::updateActions()
{
    for (QAction* const action : actions())
        action->setEnabled(!m_results.isEmpty());
}

QString StepResults::describe(int row) const
{
    const Result* const result = resultOf(row);
    if (!result)
        return {};
    QStringList currents;
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        currents.append(tr("%1 %2 mA")
                            .arg(MotionGuard::fingerName(finger))
                            .arg(result->peaks.currents[finger]));
    const QString highest = currents.join(QLatin1String(", "));
    if (result->rounds == 1)
        return tr("Last run: %1 ms; highest current: %2")
            .arg(result->peaks.milliseconds)
            .arg(highest);
    return tr("Last run, %1 rounds: at most %2 ms; highest current: %3")
        .arg(result->rounds)
        .arg(result->peaks.milliseconds)
        .arg(highest);
}

/// A line per step, with tabulators, for spreadsheets.
QString StepResults::text() const
{
    QStringList header{tr("Step"), tr("Time (ms)")};
    for (std::size_t finger = 0; finger < FingerCount; ++finger)
        header.append(tr("%1 (mA)").arg(MotionGuard::fingerName(finger)));
    QStringList lines{header.join(QLatin1Char('\t'))};
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const Result* const result = resultOf(row);
        if (!result)
            continue;
        QStringList fields{QString::number(row + 1), QString::number(result->peaks.milliseconds)};
        for (const int current : result->peaks.currents)
            fields.append(QString::number(current));
        lines.append(fields.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

/// Like the output of "vantoctl play --json".
QString StepResults::json() const
{
    QJsonArray steps;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const Result* const result = resultOf(row);
        if (!result)
            continue;
        StepPeaks peaks = result->peaks;
        peaks.step = row;
        QJsonObject step = peaks.toJson();
        step.insert(QStringLiteral("rounds"), result->rounds);
        steps.append(step);
    }
    return QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("schema"), SchemaVersion},
                                                       {QStringLiteral("steps"), steps}})
                                 .toJson());
}

} // namespace vanto
