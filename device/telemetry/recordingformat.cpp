#include "recordingformat.h"

#include "vantoprotocol.h"

#include <array>
#include <cmath>
#include <limits>

namespace vanto
{

namespace
{
// Positions and forces are numbers of the hand without a unit of measurement.
constexpr std::array Units{"_mA", "_raw", "_deg", "_raw"};
constexpr int DegreeDecimals = 2;

QString gapAndMore()
{
    return QString(RecordingFormat::Gap) + RecordingFormat::MarkerSeparator;
}
} // namespace

QString RecordingFormat::columnName(std::size_t channel)
{
    const Channel of = Channel::at(channel);
    return of.name() + QLatin1String(Units.at(static_cast<std::size_t>(of.quantity)));
}

std::optional<RecordingFormat::ChannelColumn> RecordingFormat::columnOf(const QString& name)
{
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        const Channel of = Channel::at(channel);
        if (name == columnName(channel))
            return ChannelColumn{channel, of.quantity == Quantity::Angle};
        if (name == of.name())
            return ChannelColumn{channel};
    }
    return std::nullopt;
}

QByteArray RecordingFormat::fieldText(std::int32_t value, std::size_t channel)
{
    return Channel::at(channel).quantity == Quantity::Angle
               ? QByteArray::number(value / HundredthsPerDegree, 'f', DegreeDecimals)
               : QByteArray::number(value);
}

std::optional<std::int32_t> RecordingFormat::parseField(QByteArrayView field, bool inDegrees)
{
    bool isNumber = false;
    if (!inDegrees) {
        const int value = field.toInt(&isNumber);
        return isNumber && value != MissingValue ? std::optional(value) : std::nullopt;
    }
    const double hundredths = std::round(field.toDouble(&isNumber) * HundredthsPerDegree);
    if (!isNumber || !(std::abs(hundredths) <= std::numeric_limits<std::int32_t>::max()))
        return std::nullopt;
    return static_cast<std::int32_t>(hundredths);
}

/// A text that would be read as a gap, or without its beginning, follows an empty marker.
QString RecordingFormat::markerField(const QString& text, bool afterGap)
{
    if (afterGap)
        return text.isEmpty() ? QString(Gap) : gapAndMore() + text;
    const bool isAmbiguous =
        text == Gap || text.startsWith(gapAndMore()) || text.startsWith(MarkerSeparator);
    return isAmbiguous ? MarkerSeparator + text : text;
}

RecordingFormat::MarkerField RecordingFormat::parseMarkerField(QString field)
{
    if (field == Gap)
        return {{}, true};
    if (field.startsWith(gapAndMore()))
        return {field.sliced(gapAndMore().size()), true};
    if (field.startsWith(MarkerSeparator))
        field.remove(0, MarkerSeparator.size());
    return {field, false};
}

} // namespace vanto
