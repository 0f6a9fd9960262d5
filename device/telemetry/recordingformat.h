#pragma once

#include <QLatin1String>

namespace vanto
{

// The file format of a recording, see docs/recording-file.md: CSV, a line per sample.
//
//   time_s,wall_time,CHANNEL...,marker

namespace RecordingFormat
{
inline constexpr QLatin1String TimeColumn("time_s");
inline constexpr QLatin1String WallTimeColumn("wall_time");
inline constexpr QLatin1String MarkerColumn("marker");
inline constexpr QLatin1String Gap("gap"); ///< the first marker of a line after a gap
inline constexpr QLatin1String MarkerSeparator("; ");
} // namespace RecordingFormat

} // namespace vanto
