#pragma once

#include "generation.h"
#include "sequencehistory.h"
#include "sequencemanager.h"

#include <QHash>
#include <QObject>

#include <functional>
#include <optional>

namespace vanto
{

class StepTable;

/// Changes the sequence and keeps the table of its steps up to date. All changes of either are made
/// through this class, and each can be undone. Sends nothing to a hand.
class SequenceEditor : public QObject
{
    Q_OBJECT
public:
    explicit SequenceEditor(StepTable* table, QObject* parent = nullptr);

    const SequenceData& data() const { return m_manager.sequenceData(); }
    bool isEmpty() const { return data().sequences.isEmpty(); }
    /// Stale once rows have been inserted, removed or moved.
    Generation::Token edition() const { return m_edition.token(); }
    /// The steps of these rows, as a sequence.
    SequenceData part(const QList<int>& rows) const;

    void setPositionType(const QString& type);
    /// `text` names the change, as in "Undo %1"; "%1" in it stands for the steps. An empty sequence
    /// takes over the type of the steps; otherwise the types must be equal.
    void insert(int row, const SequenceData& steps, const QString& text);
    void remove(const QList<int>& rows, const QString& text);
    /// By one row, up (-1) or down (1). Returns false if one of the rows is at the end already.
    bool move(const QList<int>& rows, int distance);
    /// Exchanges two steps.
    void exchange(int row, int other);
    /// Changes the values of a step, in whichever row it is; does nothing if it no longer exists.
    void edit(std::uint64_t step, const QString& text,
              const std::function<void(SequenceDataItem&)>& change);
    /// Replaces the whole sequence by that of `file`. It counts as saved only if it is what the
    /// file contains, as far as is known.
    void replace(const SequenceData& other, const QString& file, const QString& text);

    /// Stores a finger's value. Appends it if the list ends just before it, but leaves no gap: a
    /// value that was never chosen would move a finger.
    static void store(QList<int>& values, std::uint8_t finger, int value);

    /// Return the row concerned, or -1 if it is none.
    int undo() { return rowOf(m_history.undo()); }
    int redo() { return rowOf(m_history.redo()); }
    const QUndoStack& history() const { return m_history.stack(); }

    /// Returns false and changes nothing if the file cannot be loaded.
    bool load(const QString& file);
    /// Returns whether the file contains the whole sequence.
    bool save(const QString& file);
    /// Why the last load or save has failed.
    QString fileError() const { return m_fileError; }
    /// The file that was loaded or saved last; empty if there is none.
    QString fileName() const { return m_file; }
    /// Whether the sequence differs from what the file contains, as far as is known. An empty
    /// sequence without a file has nothing to save.
    bool isModified() const;

signals:
    /// No step of the sequence will be left.
    void sig_replacing();
    /// The sequence, its file or whether it is saved may have changed.
    void sig_changed();

private:
    void push(const SequenceEdit& edit, const QString& text, std::uint64_t step);
    void push(SequenceChange change);
    /// `content` is nothing if it is not known.
    void noteOnDisk(const QString& name, const std::optional<SequenceData>& content);
    void apply(const SequenceChange& change, bool revert);
    int rowOf(const SequenceChange* change) const;
    static QString nameSteps(const QString& text, int row, qsizetype count);

    StepTable* m_table;
    SequenceManager m_manager{nullptr};
    Generation m_edition;
    QString m_file;
    QString m_fileError;
    /// By file: what was loaded or saved last. Several names may be those of one file.
    QHash<QString, std::optional<SequenceData>> m_onDisk;
    SequenceHistory m_history;
};

} // namespace vanto
