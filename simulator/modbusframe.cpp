#include "modbusframe.h"

#include <algorithm>
#include <array>

namespace vanto::simulator
{
namespace
{
constexpr qsizetype FunctionOffset = 1;
constexpr qsizetype DataOffset = 2;
constexpr qsizetype ByteCountOffset = 6; ///< of a request that writes several values
constexpr qsizetype CrcSize = 2;
constexpr qsizetype RegisterSize = 2;

constexpr qsizetype PlainRequestLength = 8;
constexpr qsizetype ListRequestOverhead = 9;

/// Includes unsupported functions, so that they are refused instead of skipped as noise.
constexpr std::array<std::uint8_t, 6> PlainFunctions{1, 2, ReadHoldingRegisters,
                                                     4, 5, WriteSingleRegister};
constexpr std::array<std::uint8_t, 2> ListFunctions{15, WriteMultipleRegisters};

std::uint8_t byteAt(QByteArrayView bytes, qsizetype offset)
{
    return static_cast<std::uint8_t>(bytes.at(offset));
}

unsigned crc16(QByteArrayView bytes)
{
    constexpr unsigned reflectedPolynomial = 0xA001;
    unsigned crc = 0xFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<std::uint8_t>(byte);
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
    if (start.size() <= FunctionOffset)
        return 0;
    const std::uint8_t function = byteAt(start, FunctionOffset);
    if (std::ranges::count(PlainFunctions, function) > 0)
        return PlainRequestLength;
    if (std::ranges::count(ListFunctions, function) == 0)
        return std::nullopt;
    return start.size() <= ByteCountOffset ? 0
                                           : ListRequestOverhead + byteAt(start, ByteCountOffset);
}

ModbusFrame decodeModbus(QByteArrayView bytes)
{
    return {byteAt(bytes, 0), byteAt(bytes, FunctionOffset),
            bytes.sliced(DataOffset).chopped(CrcSize).toByteArray()};
}

std::optional<std::uint16_t> firstRegister(const ModbusFrame& request)
{
    if (request.data.size() < RegisterSize)
        return std::nullopt;
    return static_cast<std::uint16_t>(byteAt(request.data, 0) * 0x100 + byteAt(request.data, 1));
}

} // namespace vanto::simulator
