#pragma once

#include "bootrequest.h"
#include "framecodec.h"
#include "modbusframe.h"
#include "moment.h"
#include "protocol.h"

#include <optional>
#include <variant>

namespace vanto::simulator
{

struct ReceivedFrame {
    std::variant<Frame, ModbusFrame, BootRequest> request;
    Peer peer;
    QByteArray bytes;
    bool checksumGood = false;
    Moment began; // when its first byte came
};

// Finds requests of both protocols and the boot loader's probe in a stream of bytes. On the wire a
// frame can be cut short, run into the next one or be preceded by noise: what is no frame is
// skipped, and a frame that stops for longer than the idle time is forgotten.
//
// 55 AA starts a SerialCtrl frame and no Modbus frame, as AA is not a function. A Modbus request
// can start with any other byte, so only a good CRC at the length that its function gives tells it
// from noise; where the CRC is wrong, a request is looked for from the next byte on.
class FrameReceiver
{
public:
    explicit FrameReceiver(Clock::duration idleLimit) : m_idleLimit(idleLimit) {}

    std::optional<ReceivedFrame> feed(char byte, Moment now);
    void reset();

private:
    ReceivedFrame takeSerialCtrl(qsizetype length);
    ReceivedFrame takeModbus(qsizetype length);
    ReceivedFrame takeProbe();

    Clock::duration m_idleLimit;
    QByteArray m_bytes;
    bool m_complained = false; // of a wrong CRC since the last good frame or silence
    Moment m_began;
    Moment m_lastByte;
};

} // namespace vanto::simulator
