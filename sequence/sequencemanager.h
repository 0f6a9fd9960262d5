#pragma once

#include "sequenceedit.h"

#include <QObject>

class QFile;
class QFileDevice;

namespace vanto
{

/// Owns the sequence being edited. Indices must be those of existing steps; they are not checked.
class SequenceManager : public QObject
{
    Q_OBJECT
public:
    /// Larger files are not sequences.
    static constexpr qint64 MaxFileBytes = 64 << 20;

    explicit SequenceManager(QObject* parent = nullptr);

    const SequenceData& sequenceData() const { return m_data; }
    /// One of the two types of SequenceData. Stored values are not converted.
    void setPositionType(const QString& type) { m_data.position_type = type; }

    /// Removes all steps and resets the type to positions.
    void clearSequenceData();
    /// `index` may be the number of steps, which appends.
    void insertSequenceDataItem(int index, SequenceDataItem item);
    void updateSequenceDataItem(int index, SequenceDataItem item);
    void swapSequenceDataItem(int index1, int index2);
    void removeSequenceDataItem(int index);
    void apply(const SequenceEdit& edit) { edit.applyTo(m_data); }
    void revert(const SequenceEdit& edit) { edit.revertIn(m_data); }

    /// Returns false and leaves the sequence unchanged if the file does not exist, is not a regular
    /// file of at most MaxFileBytes, cannot be opened or is not a valid sequence.
    bool loadSequenceData(QFile& file);
    /// Returns false if the file cannot be opened. A file that is regular or new gets the new
    /// content only as a whole: after a failure it has the old one, unless its folder is not
    /// writable. fileError() returns whether everything has been written.
    bool saveSequenceData(QFile& file);
    /// Why the last load or save has failed or was incomplete; empty if it was not.
    QString fileError() const { return m_fileError; }
    /// Whether the last save has failed while it overwrote the old content.
    bool mayHaveDamaged() const { return m_mayHaveDamaged; }

private:
    bool fail(const QString& reason);
    bool failToOpen(const QString& reason);
    void failToWrite(const QFileDevice& file);
    bool overwrite(QFile& file, const QByteArray& json);

    SequenceData m_data;
    QString m_fileError;
    bool m_mayHaveDamaged = false;
};

} // namespace vanto
