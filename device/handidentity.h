#pragma once

#include "fingers.h"
#include "handcall.h"

#include <QString>

#include <array>
#include <optional>

namespace vanto
{

constexpr std::size_t ThumbRootCount = 3; ///< stored positions of the thumb root

/// What a hand says about itself, as far as it has been read. It tells one hand from another that
/// answers at the same node: the calibration of two hands is never the same.
struct HandIdentity {
    struct Firmware {
        std::uint8_t major = 0;
        std::uint8_t minor = 0;
        std::uint16_t revision = 0;
        bool operator==(const Firmware&) const = default;
    };
    struct Protocol {
        std::uint8_t major = 0;
        std::uint8_t minor = 0;
        bool operator==(const Protocol&) const = default;
    };
    struct Hardware {
        std::uint8_t type = 0;
        std::uint8_t version = 0;
        std::uint16_t bootLoader = 0;
        QString text() const; ///< type and version, for example "1B01"
        bool operator==(const Hardware&) const = default;
    };
    struct Calibration {
        PerFinger<std::uint16_t> ends{};
        PerFinger<std::uint16_t> starts{};
        std::array<std::uint16_t, ThumbRootCount> thumbRoots{};
        bool operator==(const Calibration&) const = default;
    };

    std::optional<Firmware> firmware;
    std::optional<Protocol> protocol;
    std::optional<Hardware> hardware;
    std::optional<Calibration> calibration;

    /// Reads everything, without a report of failures; what the hand refuses is left out. None if
    /// the hand does not answer.
    static std::optional<HandIdentity> read(HandCall& call);
    /// Whether it has every part that `known` has.
    bool covers(const HandIdentity& known) const;
    /// Whether what both have is equal.
    bool matches(const HandIdentity& other) const;
    /// For a message, for example "firmware V1.4.7, hardware 1B01".
    QString text() const;
};

} // namespace vanto
