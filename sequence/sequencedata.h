#pragma once

#include <QList>
#include <QString>

namespace vanto
{

/// One step of a motion sequence. Lists are indexed by finger. A short list omits the last fingers;
/// entries beyond the sixth are kept but ignored.
struct SequenceDataItem {
    /// Logical positions 0..65535 or angles -32768..32767, depending on the type of the sequence.
    QList<int> position;
    QList<int> speed; ///< 1..255
    int delay = 0;    ///< minimum duration in ms, 0..65535

    bool operator==(const SequenceDataItem&) const = default;
};

/// A motion sequence and its file form, a JSON document:
///
///     {
///         "position_type": "position",      or "angle"
///         "sequences": [
///             {
///                 "delay": 500,
///                 "position": [ 0, ... ],   one entry per line
///                 "speed": [ 255, ... ]
///             }
///         ],
///         "version": 1
///     }
///
/// Numbers out of range are clamped; a value that is not a 32-bit integer counts as 0.
class SequenceData
{
public:
    static constexpr QLatin1StringView POS_TYPE_POSITION{"position"};
    static constexpr QLatin1StringView POS_TYPE_ANGLE{"angle"};
    static constexpr int FormatVersion = 1;

    /// UTF-8, indented.
    QByteArray toJSON() const;
    /// Returns false, logs the reason and changes nothing if the bytes are not a valid sequence.
    bool fromJSON(const QByteArray& bytes);

    bool operator==(const SequenceData&) const = default;

    int version = FormatVersion;
    QString position_type = POS_TYPE_POSITION;
    QList<SequenceDataItem> sequences;
};

} // namespace vanto
