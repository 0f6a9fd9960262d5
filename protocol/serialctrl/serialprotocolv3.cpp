#include "serialprotocolv3.h"

#include "conversation.h"
#include "framelog.h"
#include "replylimits.h"
#include "serialport.h"
#include "timing.h"

#include <QByteArray>
#include <QLoggingCategory>
#include <QTime>

#include <array>
#include <span>

namespace vanto
{

namespace
{
/// Logs each frame with its time, direction and, for a reply, result.
Q_LOGGING_CATEGORY(traceLog, "vanto.serialctrl", QtWarningMsg)
/// Bytes received since the request. What a disturbed line adds to a reply is kept up to this size.
struct ReceivedBytes {
    std::array<u8, 256> data;
    std::size_t count = 0;

    void append(u8 byte)
    {
        if (count < data.size())
            data[count++] = byte;
    }
    std::span<const u8> bytes() const { return std::span(data).first(count); }
};
ReceivedBytes s_received;

QString toHex(FrameLog::Direction direction, std::span<const std::uint8_t> bytes)
{
    return FrameLog::toHex(direction, PROTOCOL_TYPE_SERIALCTRL, bytes);
}

QString traceTime()
{
    return QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
}

constexpr u8 HostAddress = 1;

void setTimeout(HAND_Context* context, int milliseconds)
{
    HAND_SetCommandTimeOut(context, static_cast<std::uint16_t>(milliseconds));
}

SerialPort& portOf(const HAND_Context* context)
{
    return *static_cast<SerialPort*>(context->user);
}

int SendData(u8 /*node*/, const u8* data, u32 length, HAND_Context* context)
{
    auto& port = portOf(context);
    // A late reply to an earlier request must not be taken for the reply to this one.
    port.clear();
    FrameLog::instance().noteSent(PROTOCOL_TYPE_SERIALCTRL, {data, length});
    qCDebug(traceLog).noquote() << traceTime() << "tx"
                                << toHex(FrameLog::Direction::Sent, {data, length});
    return static_cast<int>(port.write(data, length));
}

int RecvData(HAND_Context* context)
{
    auto& port = portOf(context);
    u8 byte = 0;
    while (port.bytesAvailable() >= 1 && port.read(&byte, 1) == 1) {
        s_received.append(byte);
        HAND_OnData(context, byte);
    }
    return 0;
}
} // namespace

bool SerialProtocolV3::connect(const char* portName, std::uint32_t baudRate)
{
    m_port = SerialPort::get("qtserial", portName);
    m_context.reset(
        HAND_CreateContext(m_port.get(), HAND_MODE_SYNC, HostAddress, SendData, RecvData),
        HAND_FreeContext);
    HAND_SetTimerFunction(GetMilliSecondsImpl, DelayMilliSecondsImpl);
    setTimeout(m_context.get(), ReplyLimits::current().serialCtrl);
    return m_port && m_port->open(portName, baudRate);
}

void SerialProtocolV3::disconnect()
{
    if (m_port)
        m_port->close();
    m_context.reset();
}

template<class Command, class... Arguments>
u8 SerialProtocolV3::exchange(Command command, u8 node, Arguments... arguments)
{
    return exchangeWithin(ReplyLimits::current().serialCtrl, command, node, arguments...);
}

template<class Command, class... Arguments>
u8 SerialProtocolV3::exchangeWithin(int milliseconds, Command command, u8 node,
                                    Arguments... arguments)
{
    const Exchange guard;
    const auto port = m_port;
    const auto context = m_context;
    setTimeout(context.get(), milliseconds);
    s_received.count = 0;
    u8 subError = 0;
    const u32 result = command(context.get(), node, arguments..., &subError);
    setNodeError(node, subError);
    FrameLog::instance().noteReceived(PROTOCOL_TYPE_SERIALCTRL, s_received.bytes(),
                                      static_cast<u8>(result));
    qCDebug(traceLog).noquote() << traceTime() << "rx"
                                << toHex(FrameLog::Direction::Received, s_received.bytes())
                                << "result" << Qt::hex << Qt::showbase << (result & 0xFF);
    return translateError(result);
}

u8 SerialProtocolV3::getProtocolVersion(u8 node, u8* major, u8* minor)
{
    return exchange(HAND_GetProtocolVersion, node, major, minor);
}

u8 SerialProtocolV3::getFirmwareVersion(u8 node, u8* major, u8* minor, u16* revision)
{
    return exchange(HAND_GetFirmwareVersion, node, major, minor, revision);
}

u8 SerialProtocolV3::getHardwareVersion(u8 node, u8* major, u8* minor, u16* revision)
{
    return exchange(HAND_GetHardwareVersion, node, major, minor, revision);
}

u8 SerialProtocolV3::getCaliData(u8 node, u16* endPositions, u16* startPositions, u8 fingerCount,
                                 u16* thumbRootPositions, u8 thumbRootCount)
{
    return exchange(HAND_GetCaliData, node, endPositions, startPositions, fingerCount,
                    thumbRootPositions, thumbRootCount);
}

u8 SerialProtocolV3::getFingerPID(u8 node, u8 finger, float* p, float* i, float* d, float* g)
{
    return exchange(HAND_GetFingerPID, node, finger, p, i, d, g);
}

u8 SerialProtocolV3::getFingerCurrentLimit(u8 node, u8 finger, u16* limit)
{
    return exchange(HAND_GetFingerCurrentLimit, node, finger, limit);
}

u8 SerialProtocolV3::getFingerCurrent(u8 node, u8 finger, u16* current)
{
    return exchange(HAND_GetFingerCurrent, node, finger, current);
}

u8 SerialProtocolV3::getFingerForceLimit(u8 node, u8 finger, u16* limit)
{
    return exchange(HAND_GetFingerForceLimit, node, finger, limit);
}

u8 SerialProtocolV3::getFingerForce(u8 node, u8 finger, u16* force, u8 count)
{
    return exchange(HAND_GetFingerForce, node, finger, force, count);
}

u8 SerialProtocolV3::getFingerPosLimit(u8 node, u8 finger, u16* lower, u16* upper)
{
    return exchange(HAND_GetFingerPosLimit, node, finger, lower, upper);
}

u8 SerialProtocolV3::getFingerPosAbs(u8 node, u8 finger, u16* target, u16* current)
{
    return exchange(HAND_GetFingerPosAbs, node, finger, target, current);
}

u8 SerialProtocolV3::getFingerPos(u8 node, u8 finger, u16* target, u16* current)
{
    return exchange(HAND_GetFingerPos, node, finger, target, current);
}

u8 SerialProtocolV3::getFingerAngle(u8 node, u8 finger, s16* target, s16* current)
{
    return exchange(HAND_GetFingerAngle, node, finger, target, current);
}

u8 SerialProtocolV3::getThumbRootPos(u8 node, u16* position, u8* index)
{
    return exchange(HAND_GetThumbRootPos, node, position, index);
}

u8 SerialProtocolV3::getFingerPosAbsAll(u8 node, u16* targets, u16* currents, u8 count)
{
    return exchange(HAND_GetFingerPosAbsAll, node, targets, currents, count);
}

u8 SerialProtocolV3::getFingerPosAll(u8 node, u16* targets, u16* currents, u8 count)
{
    return exchange(HAND_GetFingerPosAll, node, targets, currents, count);
}

u8 SerialProtocolV3::getFingerAngleAll(u8 node, s16* targets, s16* currents, u8 count)
{
    return exchange(HAND_GetFingerAngleAll, node, targets, currents, count);
}

u8 SerialProtocolV3::getSelfTestLevel(u8 node, u8* level)
{
    return exchange(HAND_GetSelfTestLevel, node, level);
}

u8 SerialProtocolV3::getBeepSwitch(u8 node, u8* on)
{
    return exchange(HAND_GetBeepSwitch, node, on);
}

u8 SerialProtocolV3::getButtonPressedCnt(u8 node, u8* count)
{
    return exchange(HAND_GetButtonPressedCnt, node, count);
}

u8 SerialProtocolV3::getUID(u8 node, u32* word0, u32* word1, u32* word2)
{
    return exchange(HAND_GetUID, node, word0, word1, word2);
}

u8 SerialProtocolV3::getBatteryVoltage(u8 node, u16* voltage)
{
    return exchange(HAND_GetBatteryVoltage, node, voltage);
}

u8 SerialProtocolV3::getUsageStat(u8 node, u32* total, u32* perFinger, u8 count)
{
    return exchange(HAND_GetUsageStat, node, total, perFinger, count);
}

u8 SerialProtocolV3::reset(u8 node, u8 mode)
{
    return exchange(HAND_Reset, node, mode);
}

u8 SerialProtocolV3::powerOff(u8 node)
{
    return exchange(HAND_PowerOff, node);
}

u8 SerialProtocolV3::setID(u8 node, u8 newNode)
{
    return exchange(HAND_SetID, node, newNode);
}

u8 SerialProtocolV3::calibrate(u8 node, u16 key)
{
    return exchange(HAND_Calibrate, node, key);
}

u8 SerialProtocolV3::setCaliData(u8 node, const u16* endPositions, const u16* startPositions,
                                 const u16* thumbRootPositions, u16 fingerCount, u16 thumbRootCount)
{
    return exchange(HAND_SetCaliData, node, endPositions, startPositions, fingerCount,
                    thumbRootPositions, thumbRootCount);
}

u8 SerialProtocolV3::setFingerPID(u8 node, u8 finger, float p, float i, float d, float g)
{
    return exchangeWithin(ReplyLimits::current().serialCtrlGains, HAND_SetFingerPID, node, finger,
                          p, i, d, g);
}

u8 SerialProtocolV3::setFingerCurrentLimit(u8 node, u8 finger, u16 limit)
{
    return exchange(HAND_SetFingerCurrentLimit, node, finger, limit);
}

u8 SerialProtocolV3::setFingerForceLimit(u8 node, u8 finger, u16 limit)
{
    return exchange(HAND_SetFingerForceLimit, node, finger, limit);
}

u8 SerialProtocolV3::setFingerPosLimit(u8 node, u8 finger, u16 lower, u16 upper)
{
    return exchange(HAND_SetFingerPosLimit, node, finger, lower, upper);
}

u8 SerialProtocolV3::fingerStart(u8 node, u8 mask)
{
    return exchange(HAND_FingerStart, node, mask);
}

u8 SerialProtocolV3::fingerStop(u8 node, u8 mask)
{
    return exchange(HAND_FingerStop, node, mask);
}

u8 SerialProtocolV3::setFingerPosAbs(u8 node, u8 finger, u16 position, u8 speed)
{
    return exchange(HAND_SetFingerPosAbs, node, finger, position, speed);
}

u8 SerialProtocolV3::setFingerPos(u8 node, u8 finger, u16 position, u8 speed)
{
    return exchange(HAND_SetFingerPos, node, finger, position, speed);
}

u8 SerialProtocolV3::setFingerAngle(u8 node, u8 finger, s16 angle, u8 speed)
{
    return exchange(HAND_SetFingerAngle, node, finger, angle, speed);
}

u8 SerialProtocolV3::setFingerPosAbsAll(u8 node, const u16* positions, const u8* speeds, u8 count)
{
    return exchange(HAND_SetFingerPosAbsAll, node, positions, speeds, count);
}

u8 SerialProtocolV3::setFingerPosAll(u8 node, const u16* positions, const u8* speeds, u8 count)
{
    return exchange(HAND_SetFingerPosAll, node, positions, speeds, count);
}

u8 SerialProtocolV3::setFingerAngleAll(u8 node, const s16* angles, const u8* speeds, u8 count)
{
    return exchange(HAND_SetFingerAngleAll, node, angles, speeds, count);
}

u8 SerialProtocolV3::setSelfTestLevel(u8 node, u8 level)
{
    return exchange(HAND_SetSelfTestLevel, node, level);
}

u8 SerialProtocolV3::setBeepSwitch(u8 node, u8 on)
{
    return exchange(HAND_SetBeepSwitch, node, on);
}

u8 SerialProtocolV3::beep(u8 node, u16 duration)
{
    return exchange(HAND_Beep, node, duration);
}

u8 SerialProtocolV3::setButtonPressedCnt(u8 node, u8 count)
{
    return exchange(HAND_SetButtonPressedCnt, node, count);
}

u8 SerialProtocolV3::startInit(u8 node)
{
    return exchange(HAND_StartInit, node);
}

} // namespace vanto
