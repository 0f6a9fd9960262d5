#pragma once

#include <QByteArray>
#include <QList>

#include <cstdint>
#include <optional>

namespace vanto::simulator
{

/// SerialCtrl frame: 55 AA, destination, source, command, length N, N payload bytes, checksum.
/// The checksum is the XOR of all bytes after 55 AA.
struct Frame {
    std::uint8_t destination = 0;
    std::uint8_t source = 0;
    std::uint8_t command = 0;
    QByteArray payload;
};

constexpr std::uint8_t AnyNode = 0xFF;
constexpr std::uint8_t ErrorBit = 0x80;

QByteArray encode(const Frame& frame);

/// The replies of several hands at the same time as they arrive at the host: at least two encoded
/// frames, mixed to bytes with a wrong checksum.
QByteArray mixed(const QList<QByteArray>& replies);

/// Returns the length of the request that begins with `start`: 0 while it is unknown, nullopt if no
/// request begins with these bytes.
std::optional<qsizetype> serialCtrlRequestLength(QByteArrayView start);
/// Expects a complete frame; does not check the checksum.
Frame decode(QByteArrayView bytes);

} // namespace vanto::simulator
