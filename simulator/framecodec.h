#pragma once

#include "moment.h"

#include <QByteArray>

#include <optional>

namespace simulator
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
constexpr qsizetype maxRequestPayload = 63;

QByteArray encode(const Frame& frame);

struct ReceivedFrame {
    Frame frame;
    QByteArray bytes;
    bool checksumGood = false;
    Moment began; // when its first byte came
};

// Finds requests in a stream of bytes. On the wire a frame can be cut short, run into the next
// one or be preceded by noise: what is no frame is skipped, and a frame that stops for longer than
// the idle time is forgotten.
class FrameReceiver
{
public:
    explicit FrameReceiver(Clock::duration idleLimit) : m_idleLimit(idleLimit) {}

    std::optional<ReceivedFrame> feed(char byte, Moment now);
    void reset() { m_bytes.clear(); }

private:
    std::optional<ReceivedFrame> complete();

    Clock::duration m_idleLimit;
    QByteArray m_bytes;
    Moment m_began;
    Moment m_lastByte;
};

} // namespace simulator
