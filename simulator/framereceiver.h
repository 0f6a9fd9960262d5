#pragma once

#include "bootrequest.h"
#include "framecodec.h"
#include "modbusframe.h"
#include "protocol.h"
#include "timepoint.h"

#include <optional>
#include <variant>

namespace vanto::simulator
{

struct ReceivedFrame {
    std::variant<Frame, ModbusFrame, BootRequest> request;
    Peer peer;
    QByteArray bytes;
    bool checksumValid = false;
    TimePoint startTime; ///< of the first byte
};

/// Finds requests of both protocols and the probe of the boot loader in a stream of bytes. A frame
/// can be truncated, run into the next one or follow noise: the receiver skips bytes that do not
/// belong to a frame, and discards a frame with a pause longer than the idle limit.
///
/// 55 AA always starts a SerialCtrl frame, as AA is not a Modbus function. A Modbus request can
/// start with any other byte, so only a valid CRC at the length given by its function distinguishes
/// it from noise. If the CRC is wrong, the search resumes at the next byte.
class FrameReceiver
{
public:
    explicit FrameReceiver(Clock::duration idleLimit) : m_idleLimit(idleLimit) {}

    std::optional<ReceivedFrame> feed(char byte, TimePoint now);
    void reset();

private:
    ReceivedFrame extractSerialCtrl(qsizetype length);
    ReceivedFrame extractModbus(qsizetype length);
    ReceivedFrame extractProbe();

    Clock::duration m_idleLimit;
    QByteArray m_bytes;
    bool m_crcErrorReported = false; ///< since the last valid frame or silence
    TimePoint m_startTime;
    TimePoint m_lastByte;
};

} // namespace vanto::simulator
