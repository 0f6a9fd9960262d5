#pragma once

#include "fingers.h"
#include "readingmonitor.h"

#include <QString>

#include <bitset>
#include <cstdint>
#include <limits>
#include <optional>

namespace vanto
{

inline constexpr std::int64_t UsPerSecond = 1'000'000;

/// What can be sampled: one quantity of one finger. Channels are numbered from 0, in the order
/// currents, positions, angles, forces, and within a quantity in the order of the fingers. The
/// thumb root has no force.
struct Channel {
    Quantity quantity = Quantity::Current;
    std::uint8_t finger = 0;

    bool operator==(const Channel&) const = default;

    /// `index` below ChannelCount.
    static Channel at(std::size_t index);
    std::size_t index() const;
    /// "current_thumb", "angle_thumb_root".
    QString name() const;
};

inline constexpr std::size_t ForceFingerCount = 5; ///< the thumb root has no force sensor
inline constexpr std::size_t ChannelCount = 3 * FingerCount + ForceFingerCount;

using ChannelSet = std::bitset<ChannelCount>; ///< by Channel::index()

/// All channels of a quantity.
ChannelSet channelsOf(Quantity quantity);

/// A channel that was not read, or whose reading failed.
inline constexpr std::int32_t MissingValue = std::numeric_limits<std::int32_t>::min();

/// The values of all channels at one time, in the units of VantoProtocol; of a force the first of
/// its values.
struct Sample {
    std::int64_t timeUs = 0; ///< since the start of the TelemetryClock
    bool afterGap = false;   ///< no sample was taken for an unexpectedly long time before this one
    std::array<std::int32_t, ChannelCount> values = noValues();

    static constexpr std::array<std::int32_t, ChannelCount> noValues()
    {
        std::array<std::int32_t, ChannelCount> values{};
        values.fill(MissingValue);
        return values;
    }
};

/// A note of the user or of the program at a time.
struct Marker {
    static constexpr qsizetype MaxTextLength =
        200; ///< of a user's note; recordings cut longer texts

    std::int64_t timeUs = 0;
    QString text;

    bool operator==(const Marker&) const = default;
};

} // namespace vanto
