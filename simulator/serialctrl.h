#pragma once

#include "hand.h"

#include <QByteArray>

#include <cstdint>

namespace vanto::simulator
{

/// A payload on success, otherwise a sub error. The functions append little-endian numbers.
struct Response {
    QByteArray payload;
    std::uint8_t subError = NoSubError;

    Response& u8(unsigned value);
    Response& u16(unsigned value);
    Response& u16BigEndian(unsigned value);
    Response& u32(std::uint32_t value);
    Response& f32(float value);
};

/// Executes one SerialCtrl command.
Response executeSerialCtrl(Hand& hand, std::uint8_t command, QByteArrayView payload, TimePoint now);

} // namespace vanto::simulator
