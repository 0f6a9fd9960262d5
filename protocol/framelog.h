#pragma once

#include "vantoprotocol.h"

#include <QString>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vanto
{

/// The last frames of both adapters, kept at all times for a support report. Noting a frame copies
/// it into a ring of fixed size and allocates nothing.
class FrameLog
{
public:
    static constexpr std::size_t Capacity = 10'000;
    /// Bytes that are kept of one frame; the longest frame of a hand is shorter.
    static constexpr std::size_t MaxBytes = 76;

    enum class Direction : std::uint8_t { Sent, Received };
    struct Frame {
        std::chrono::system_clock::time_point time;
        Direction direction = Direction::Sent;
        PROTOCOL_TYPE protocol = PROTOCOL_TYPE_SERIALCTRL;
        /// Of a received one: 0 is success; others are results of SerialCtrl or errors of the
        /// Modbus client.
        std::uint8_t result = 0;
        std::uint16_t length = 0; ///< on the line; 0: nothing was received
        std::array<std::uint8_t, MaxBytes> data{};

        std::span<const std::uint8_t> bytes() const;
        /// "2026-11-22T06:25:17.123456Z SerialCtrl tx 55 aa 02 ..."; a received one ends with its
        /// result. A calibration key is shown as "**".
        QString text() const;
    };

    /// The log of this process.
    static FrameLog& instance();

    void noteSent(PROTOCOL_TYPE protocol, std::span<const std::uint8_t> bytes);
    void noteReceived(PROTOCOL_TYPE protocol, std::span<const std::uint8_t> bytes,
                      std::uint8_t result);
    /// The bytes of a frame in hexadecimal digits; a calibration key is shown as "**".
    static QString toHex(Direction direction, PROTOCOL_TYPE protocol,
                         std::span<const std::uint8_t> bytes);

    /// Oldest first.
    std::vector<Frame> frames() const;
    void clear();

private:
    Frame& next(PROTOCOL_TYPE protocol, std::span<const std::uint8_t> bytes);

    std::vector<Frame> m_ring;
    std::size_t m_next = 0; ///< index of the oldest frame once the ring is full
};

} // namespace vanto
