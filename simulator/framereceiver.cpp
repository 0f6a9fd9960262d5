#include "framereceiver.h"

#include <utility>

namespace vanto::simulator
{
namespace
{
bool isComplete(const QByteArray& bytes, const std::optional<qsizetype>& length)
{
    return length && *length > 0 && bytes.size() >= *length;
}

bool isProbeStart(const QByteArray& bytes)
{
    return bootProbe().startsWith(bytes);
}
} // namespace

void FrameReceiver::reset()
{
    m_bytes.clear();
    m_crcErrorReported = false;
}

std::optional<ReceivedFrame> FrameReceiver::feed(char byte, TimePoint now)
{
    if (now - m_lastByte > m_idleLimit)
        reset();
    m_lastByte = now;
    if (m_bytes.isEmpty())
        m_startTime = now;
    m_bytes.append(byte);

    std::optional<ReceivedFrame> damaged;
    while (!m_bytes.isEmpty()) {
        const auto serialCtrlLength = serialCtrlRequestLength(m_bytes);
        if (isComplete(m_bytes, serialCtrlLength))
            return extractSerialCtrl(*serialCtrlLength);
        const auto modbusLength = modbusRequestLength(m_bytes);
        if (isComplete(m_bytes, modbusLength)) {
            ReceivedFrame received = extractModbus(*modbusLength);
            if (received.checksumValid)
                return received;
            if (!std::exchange(m_crcErrorReported, true))
                damaged = std::move(received);
            continue;
        }
        if (m_bytes == bootProbe())
            return extractProbe();
        if (serialCtrlLength || modbusLength || isProbeStart(m_bytes))
            break;
        m_bytes.remove(0, 1);
    }
    return damaged;
}

ReceivedFrame FrameReceiver::extractSerialCtrl(qsizetype length)
{
    ReceivedFrame received;
    received.bytes = m_bytes.first(length);
    received.startTime = m_startTime;
    const Frame frame = decode(received.bytes);
    received.checksumValid = encode(frame) == received.bytes;
    received.peer = {Protocol::SerialCtrl, frame.destination};
    received.request = frame;
    reset();
    return received;
}

/// Removes only the first byte of a damaged frame: it may be noise that precedes a request.
ReceivedFrame FrameReceiver::extractModbus(qsizetype length)
{
    ReceivedFrame received;
    received.bytes = m_bytes.first(length);
    received.startTime = m_startTime;
    const ModbusFrame frame = decodeModbus(received.bytes);
    received.checksumValid = encode(frame) == received.bytes;
    received.peer = {Protocol::Modbus, frame.node};
    received.request = frame;
    if (received.checksumValid)
        reset();
    else
        m_bytes.remove(0, 1);
    return received;
}

ReceivedFrame FrameReceiver::extractProbe()
{
    ReceivedFrame received;
    received.bytes = m_bytes;
    received.startTime = m_startTime;
    received.checksumValid = true;
    received.peer.protocol = Protocol::Boot;
    received.request = BootRequest{BootStage::Probe, m_bytes};
    reset();
    return received;
}

} // namespace vanto::simulator
