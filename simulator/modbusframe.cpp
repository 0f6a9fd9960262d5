#include "modbusframe.h"

#include <algorithm>
#include <array>

namespace vanto::simulator
{
namespace
{
constexpr qsizetype functionAt = 1;
constexpr qsizetype dataAt = 2;
constexpr qsizetype byteCountAt = 6; // of a request that writes several values
constexpr qsizetype crcSize = 2;
constexpr qsizetype registerSize = 2;

constexpr qsizetype plainRequestLength = 8;
constexpr qsizetype listRequestOverhead = 9;

// Also functions that no hand knows, so that they are refused and not taken for noise.
constexpr std::array<quint8, 6> plainFunctions{1, 2, ReadHoldingRegisters,
                                               4, 5, WriteSingleRegister};
constexpr std::array<quint8, 2> listFunctions{15, WriteMultipleRegisters};

quint8 unsignedAt(QByteArrayView bytes, qsizetype offset)
{
    return static_cast<quint8>(bytes.at(offset));
}

unsigned crc16(QByteArrayView bytes)
{
    constexpr unsigned reflectedPolynomial = 0xA001;
    unsigned crc = 0xFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? crc >> 1U ^ reflectedPolynomial : crc >> 1U;
    }
    return crc;
}
} // namespace

QByteArray encode(const ModbusFrame& frame)
{
    QByteArray bytes;
    bytes.append(static_cast<char>(frame.node)).append(static_cast<char>(frame.function));
    bytes.append(frame.data);
    const unsigned crc = crc16(bytes);
    return bytes.append(static_cast<char>(crc & 0xFFU)).append(static_cast<char>(crc >> 8U));
}

std::optional<qsizetype> modbusRequestLength(QByteArrayView start)
{
    if (start.size() <= functionAt)
        return 0;
    const quint8 function = unsignedAt(start, functionAt);
    if (std::ranges::count(plainFunctions, function) > 0)
        return plainRequestLength;
    if (std::ranges::count(listFunctions, function) == 0)
        return std::nullopt;
    return start.size() <= byteCountAt ? 0 : listRequestOverhead + unsignedAt(start, byteCountAt);
}

ModbusFrame decodeModbus(QByteArrayView bytes)
{
    return {unsignedAt(bytes, 0), unsignedAt(bytes, functionAt),
            bytes.sliced(dataAt).chopped(crcSize).toByteArray()};
}

std::optional<quint16> firstRegister(const ModbusFrame& request)
{
    if (request.data.size() < registerSize)
        return std::nullopt;
    return static_cast<quint16>(unsignedAt(request.data, 0) * 0x100 + unsignedAt(request.data, 1));
}

} // namespace vanto::simulator
