#pragma once

#include "sample.h"

#include <QLatin1String>

namespace vanto
{

// The file format of a recording, see docs/recording-file.md: CSV, a line per sample or marker.
//
//   time_s,wall_time,CHANNEL...,marker

namespace RecordingFormat
{
inline constexpr QLatin1String TimeColumn("time_s");
inline constexpr QLatin1String WallTimeColumn("wall_time");
inline constexpr QLatin1String MarkerColumn("marker");
inline constexpr QLatin1String Gap("gap"); ///< the first marker of a line after a gap
inline constexpr QLatin1String MarkerSeparator("; ");

struct ChannelColumn {
    std::size_t channel = 0;
    bool inDegrees = false; ///< otherwise in the units of Sample
};

/// The name of a channel and its unit: "current_thumb_mA".
QString columnName(std::size_t channel);
/// Also finds the names without a unit of older recordings.
std::optional<ChannelColumn> columnOf(const QString& name);

/// A value, which is not missing, as it is written in the column of its channel.
QByteArray fieldText(std::int32_t value, std::size_t channel);
/// The value of a field of a column; no value if it is not a number in the range of a sample.
std::optional<std::int32_t> parseField(QByteArrayView field, bool inDegrees);

/// The content of the marker column.
QString markerField(const QString& text, bool afterGap);
struct MarkerField {
    QString text; ///< empty: no marker
    bool afterGap = false;
};
/// The reverse of markerField().
MarkerField parseMarkerField(QString field);
} // namespace RecordingFormat

} // namespace vanto
