#pragma once

#include <QList>
#include <QString>

namespace vanto
{

/// One step of a motion sequence. Lists are indexed by finger; a list that is too short leaves out
/// the fingers at its end, entries beyond the sixth are kept but have no meaning.
struct SequenceDataItem {
    /// Logical positions 0..65535 or angles -32768..32767, by the type of the sequence.
    QList<int> position;
    QList<int> speed; ///< 1..255
    int delay = 0;    ///< least duration in ms, 0..65535

    bool operator==(const SequenceDataItem&) const = default;
};

/// A motion sequence and its file form, a JSON document:
///
///     {
///         "position_type": "position",      or "angle"
///         "sequences": [
///             {
///                 "delay": 500,
///                 "position": [ 0, ... ],   one entry a line
///                 "speed": [ 255, ... ]
///             }
///         ],
///         "version": 1
///     }
///
/// Numbers out of range are brought into it; what is not a whole number of 32 bits counts as 0.
class SequenceData
{
public:
    static constexpr QLatin1StringView POS_TYPE_POSITION{"position"};
    static constexpr QLatin1StringView POS_TYPE_ANGLE{"angle"};
    static constexpr int FormatVersion = 1;

    /// UTF-8, indented.
    QByteArray toJSON() const;
    /// False when the bytes are no sequence; the reason is on the debug log and all stays as it
    /// was.
    bool fromJSON(const QByteArray& bytes);

    bool operator==(const SequenceData&) const = default;

    int version = FormatVersion;
    QString position_type = POS_TYPE_POSITION;
    QList<SequenceDataItem> sequences;
};

} // namespace vanto
