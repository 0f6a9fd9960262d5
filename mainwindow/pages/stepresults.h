#pragma once

#include "playpeaks.h"
#include "sequencedata.h"

#include <QHash>
#include <QList>
#include <QObject>

class QAction;

namespace vanto
{

class SequenceEditor;
class SequencePlayer;
class StepTable;

/// The time and the highest currents of each step of the last run, for the user. They belong to the
/// steps as they were played: a step that has been changed has none, and has them again when the
/// change is undone.
class StepResults : public QObject
{
    Q_OBJECT
public:
    StepResults(const SequenceEditor* sequence, const StepTable* table, SequencePlayer* player,
                QObject* parent);

    /// For a tool tip; empty if the step has not been played.
    QString describe(int row) const;
    /// The actions that copy the results of all rows.
    QList<QAction*> actions() const { return {m_copyText, m_copyJson}; }

private:
    struct Result {
        SequenceDataItem played;
        StepPeaks peaks; ///< of several rounds the highest ones
        int rounds = 0;
    };

    QAction* addAction(const QString& name, const QString& text,
                       QString (StepResults::*content)() const);
    void begin();
    void add(const StepPeaks& peaks);
    const Result* resultOf(int row) const;
    void updateActions();
    QString text() const;
    QString json() const;

    const SequenceEditor* m_sequence;
    const StepTable* m_table;
    QAction* m_copyText;
    QAction* m_copyJson;
    QString m_positionType;                 ///< of the played sequence
    QHash<std::uint64_t, Result> m_results; ///< by the id of the step
};

} // namespace vanto
