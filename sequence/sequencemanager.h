#pragma once

#include "sequencedata.h"

#include <QObject>

class QFile;

namespace vanto
{

/// Owns the sequence that is being edited. Indices are those of steps that exist; a wrong one is a
/// mistake of the caller and not looked for.
class SequenceManager : public QObject
{
    Q_OBJECT
public:
    explicit SequenceManager(QObject* parent = nullptr);

    const SequenceData& sequenceData() const { return m_data; }
    /// One of the two types of SequenceData. Stored values are not converted.
    void setPositionType(const QString& type) { m_data.position_type = type; }

    /// No steps, by position.
    void clearSequenceData();
    /// `index` may be the number of steps, which appends.
    void insertSequenceDataItem(int index, SequenceDataItem item);
    void updateSequenceDataItem(int index, SequenceDataItem item);
    void swapSequenceDataItem(int index1, int index2);
    void removeSequenceDataItem(int index);

    /// False when there is no such file, or it does not open or holds no sequence; then the
    /// sequence stays as it was.
    bool loadSequenceData(QFile& file);
    /// False when the file does not open. Whether all was written is not looked at.
    bool saveSequenceData(QFile& file) const;

private:
    SequenceData m_data;
};

} // namespace vanto
