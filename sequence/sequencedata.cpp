#include "sequencedata.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr QLatin1StringView VersionKey{"version"};
constexpr QLatin1StringView PositionTypeKey{"position_type"};
constexpr QLatin1StringView SequencesKey{"sequences"};
constexpr QLatin1StringView PositionKey{"position"};
constexpr QLatin1StringView SpeedKey{"speed"};
constexpr QLatin1StringView DelayKey{"delay"};

struct Range {
    int min;
    int max;

    int read(const QJsonValue& value) const { return std::clamp(value.toInt(), min, max); }
};

constexpr Range Positions{0, 65535};
constexpr Range Angles{-32768, 32767};
constexpr Range Speeds{1, 255};
constexpr Range DelaysMs{0, 65535};

QJsonArray toArray(const QList<int>& numbers)
{
    QJsonArray array;
    for (const int number : numbers)
        array.append(number);
    return array;
}

QList<int> toNumbers(const QJsonValue& value, const Range& range)
{
    const QJsonArray array = value.toArray();
    QList<int> numbers;
    numbers.reserve(array.size());
    for (const QJsonValue entry : array)
        numbers.append(range.read(entry));
    return numbers;
}

bool rejectDocument(const char* message, const QByteArray& input)
{
    qDebug().noquote().nospace() << message << input;
    return false;
}
} // namespace

QByteArray SequenceData::toJSON() const
{
    QJsonArray steps;
    for (const SequenceDataItem& step : sequences)
        steps.append(QJsonObject{{DelayKey, step.delay},
                                 {PositionKey, toArray(step.position)},
                                 {SpeedKey, toArray(step.speed)}});
    const QJsonObject document{
        {VersionKey, version}, {PositionTypeKey, position_type}, {SequencesKey, steps}};
    return QJsonDocument(document).toJson(QJsonDocument::Indented);
}

bool SequenceData::fromJSON(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonObject document = QJsonDocument::fromJson(bytes, &error).object();
    if (error.error != QJsonParseError::NoError)
        return rejectDocument("Invalid json: parse fail: ", bytes);
    if (!document.contains(VersionKey))
        return rejectDocument("Invalid json: invalid version: ", bytes);
    if (document.value(VersionKey).toInt() != FormatVersion)
        return rejectDocument("Invalid json: unsupported version: ", bytes);
    if (!document.contains(PositionTypeKey))
        return rejectDocument("Invalid json: invalid position_type: ", bytes);
    const QString type = document.value(PositionTypeKey).toString();
    if (type != POS_TYPE_POSITION && type != POS_TYPE_ANGLE)
        return rejectDocument("Invalid json: unsupported position_type: ", bytes);
    if (!document.contains(SequencesKey))
        return rejectDocument("Invalid json: invalid sequences: ", bytes);

    const Range& targets = type == POS_TYPE_POSITION ? Positions : Angles;
    const QJsonArray array = document.value(SequencesKey).toArray();
    QList<SequenceDataItem> steps;
    steps.reserve(array.size());
    for (const QJsonValue entry : array) {
        const QJsonObject step = entry.toObject();
        steps.append({toNumbers(step.value(PositionKey), targets),
                      toNumbers(step.value(SpeedKey), Speeds),
                      DelaysMs.read(step.value(DelayKey))});
    }
    *this = {FormatVersion, type, steps};
    return true;
}

} // namespace vanto
