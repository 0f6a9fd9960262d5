#pragma once

#include <QByteArray>

#include <optional>

namespace vanto::simulator
{

// SerialCtrl frame: 55 AA, destination, source, command, length N, N payload bytes, checksum.
// The checksum is the XOR of everything between the sync bytes and itself.
struct Frame {
    quint8 destination = 0;
    quint8 source = 0;
    quint8 command = 0;
    QByteArray payload;
};

constexpr quint8 anyNode = 0xFF;
constexpr quint8 errorBit = 0x80;

QByteArray encode(const Frame& frame);

// Bytes of the request that starts like this; 0 as long as that cannot be told, nothing if no
// request starts so.
std::optional<qsizetype> serialCtrlRequestLength(QByteArrayView start);
// Of a whole frame; its checksum is not looked at.
Frame decode(QByteArrayView bytes);

} // namespace vanto::simulator
