#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace vanto
{

class ElidedLabel;
class SequenceEditor;
class SequencePlayer;
class StepEditors;
class StepResults;
class StepTable;

/// The line below the table and the mark of a row: what the current step is, whether it has been
/// sent, and what is being played.
class SequenceStatus : public QObject
{
    Q_OBJECT
public:
    SequenceStatus(const SequenceEditor* sequence, StepTable* table, const StepEditors* editors,
                   const StepResults* results, const SequencePlayer* player, ElidedLabel* line);

    /// The current row has been selected without sending it, or could not be sent.
    void markNotSent();
    /// The current row is being sent.
    void clearMark();
    bool isNotSent() const;

    /// The player sends a step.
    void noteStep(int row);
    /// Whether noteStep() has been called since the play began.
    bool hasStep() const { return m_sinceStep.isValid(); }
    void update(bool isPlaying);

private:
    void showPlayed();
    QString describe(int row) const;
    QString toolTip(int row) const;
    QString textOfRun() const;
    QString textOfEdit() const;
    QString textOfRow() const;

    const SequenceEditor* m_sequence;
    StepTable* m_table;
    const StepEditors* m_editors;
    const StepResults* m_results;
    const SequencePlayer* m_player;
    ElidedLabel* m_line;
    QTimer m_refresh;            ///< while a step is played for edit
    QElapsedTimer m_sinceStep;   ///< valid while a step is played
    std::uint64_t m_notSent = 0; ///< a step
};

} // namespace vanto
