#include "modbustrace.h"

#include "framelog.h"

#include <QLoggingCategory>
#include <QModbusDevice>
#include <QModbusPdu>
#include <QTime>

#include <span>

namespace vanto
{

namespace
{
Q_LOGGING_CATEGORY(traceLog, "vanto.modbus", QtWarningMsg)

constexpr std::uint16_t CrcStart = 0xFFFF;
constexpr std::uint16_t CrcPolynomial = 0xA001; ///< 0x8005, lowest bit first

/// The frame as it is on the wire: address, function, data, CRC with its low byte first.
QByteArray buildFrame(std::uint8_t slave, int function, const QByteArray& data)
{
    QByteArray frame(1, static_cast<char>(slave));
    frame += static_cast<char>(function);
    frame += data;
    std::uint16_t crc = CrcStart;
    for (const char byte : frame) {
        crc = static_cast<std::uint16_t>(crc ^ static_cast<std::uint8_t>(byte));
        for (int bit = 0; bit < 8; ++bit)
            crc = static_cast<std::uint16_t>((crc >> 1) ^ ((crc & 1) != 0 ? CrcPolynomial : 0));
    }
    frame += static_cast<char>(crc & 0xFF);
    frame += static_cast<char>(crc >> 8);
    return frame;
}

QString now()
{
    return QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
}

std::span<const std::uint8_t> bytesOf(const QByteArray& frame)
{
    return {reinterpret_cast<const std::uint8_t*>(frame.constData()),
            static_cast<std::size_t>(frame.size())};
}

QString toHex(FrameLog::Direction direction, const QByteArray& frame)
{
    return FrameLog::toHex(direction, PROTOCOL_TYPE_MODBUS_RTU, bytesOf(frame));
}
} // namespace

void ModbusTrace::request(std::uint8_t slave, int function, const QByteArray& data)
{
    const QByteArray frame = buildFrame(slave, function, data);
    FrameLog::instance().noteSent(PROTOCOL_TYPE_MODBUS_RTU, bytesOf(frame));
    qCDebug(traceLog).noquote() << now() << "tx" << toHex(FrameLog::Direction::Sent, frame);
}

void ModbusTrace::reply(std::uint8_t slave, int function, const QByteArray& data, int error,
                        std::uint8_t result)
{
    const int exception = error == QModbusDevice::ProtocolError ? QModbusPdu::ExceptionByte : 0;
    const QByteArray frame =
        data.isEmpty() ? QByteArray() : buildFrame(slave, function | exception, data);
    FrameLog::instance().noteReceived(PROTOCOL_TYPE_MODBUS_RTU, bytesOf(frame), result);
    qCDebug(traceLog).noquote() << now() << "rx" << toHex(FrameLog::Direction::Received, frame)
                                << "error" << error;
}

} // namespace vanto
