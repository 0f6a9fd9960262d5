#pragma once

#include "sequencedata.h"

#include <QObject>

class QFile;

namespace vanto
{

/// Owns the sequence being edited. Indices must be those of existing steps; they are not checked.
class SequenceManager : public QObject
{
    Q_OBJECT
public:
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

    /// Returns false and leaves the sequence unchanged if the file does not exist, cannot be opened
    /// or is not a valid sequence.
    bool loadSequenceData(QFile& file);
    /// Returns false if the file cannot be opened. Write errors are not checked.
    bool saveSequenceData(QFile& file) const;

private:
    SequenceData m_data;
};

} // namespace vanto
