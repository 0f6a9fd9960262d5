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

bool startsProbe(const QByteArray& bytes)
{
    return bootProbe().startsWith(bytes);
}
} // namespace

void FrameReceiver::reset()
{
    m_bytes.clear();
    m_complained = false;
}

std::optional<ReceivedFrame> FrameReceiver::feed(char byte, Moment now)
{
    if (now - m_lastByte > m_idleLimit)
        reset();
    m_lastByte = now;
    if (m_bytes.isEmpty())
        m_began = now;
    m_bytes.append(byte);

    std::optional<ReceivedFrame> spoiled;
    while (!m_bytes.isEmpty()) {
        const auto serialCtrlLength = serialCtrlRequestLength(m_bytes);
        if (isComplete(m_bytes, serialCtrlLength))
            return takeSerialCtrl(*serialCtrlLength);
        const auto modbusLength = modbusRequestLength(m_bytes);
        if (isComplete(m_bytes, modbusLength)) {
            ReceivedFrame received = takeModbus(*modbusLength);
            if (received.checksumGood)
                return received;
            if (!std::exchange(m_complained, true))
                spoiled = std::move(received);
            continue;
        }
        if (m_bytes == bootProbe())
            return takeProbe();
        if (serialCtrlLength || modbusLength || startsProbe(m_bytes))
            break;
        m_bytes.remove(0, 1);
    }
    return spoiled;
}

ReceivedFrame FrameReceiver::takeSerialCtrl(qsizetype length)
{
    ReceivedFrame received;
    received.bytes = m_bytes.first(length);
    received.began = m_began;
    const Frame frame = decode(received.bytes);
    received.checksumGood = encode(frame) == received.bytes;
    received.peer = {Protocol::SerialCtrl, frame.destination};
    received.request = frame;
    reset();
    return received;
}

// A spoiled frame loses only its first byte: it may be noise with a request behind it.
ReceivedFrame FrameReceiver::takeModbus(qsizetype length)
{
    ReceivedFrame received;
    received.bytes = m_bytes.first(length);
    received.began = m_began;
    const ModbusFrame frame = decodeModbus(received.bytes);
    received.checksumGood = encode(frame) == received.bytes;
    received.peer = {Protocol::Modbus, frame.node};
    received.request = frame;
    if (received.checksumGood)
        reset();
    else
        m_bytes.remove(0, 1);
    return received;
}

ReceivedFrame FrameReceiver::takeProbe()
{
    ReceivedFrame received;
    received.bytes = m_bytes;
    received.began = m_began;
    received.checksumGood = true;
    received.peer.protocol = Protocol::Boot;
    received.request = BootRequest{BootStage::Probe, m_bytes};
    reset();
    return received;
}

} // namespace vanto::simulator
