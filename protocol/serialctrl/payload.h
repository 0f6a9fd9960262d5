#pragma once

#include "vantoserialapi.h"

#include <bit>
#include <concepts>
#include <cstring>
#include <span>
#include <type_traits>

namespace vanto
{

// Packing of request payloads and unpacking of reply payloads; both little-endian.

/// A number in its wire format: integers of 1, 2 or 4 bytes and single-precision floats.
template<class T>
concept WireNumber = std::integral<T> || std::same_as<T, float>;

template<WireNumber T>
using WireBits =
    std::conditional_t<sizeof(T) == 1, std::uint8_t,
                       std::conditional_t<sizeof(T) == 2, std::uint16_t, std::uint32_t>>;

/// The payload of one request. size() also counts bytes beyond the capacity, so that the length
/// check sees the full length.
class RequestPayload
{
public:
    template<WireNumber T>
    RequestPayload& put(T value)
    {
        auto bits = std::bit_cast<WireBits<T>>(value);
        for (std::size_t i = 0; i < sizeof(T); ++i)
            putByte(static_cast<std::uint8_t>(bits >> (8 * i)));
        return *this;
    }

    template<WireNumber T>
    RequestPayload& put(std::span<const T> values)
    {
        for (const T value : values)
            put(value);
        return *this;
    }

    const std::uint8_t* data() const { return m_bytes.data(); }
    std::size_t size() const { return m_size; }

private:
    void putByte(std::uint8_t byte)
    {
        if (m_size < m_bytes.size())
            m_bytes[m_size] = byte;
        ++m_size;
    }

    std::array<std::uint8_t, HAND_MAX_REQUEST_PAYLOAD> m_bytes{};
    std::size_t m_size = 0;
};

/// Reads a reply payload from front to back. The caller has checked that it is long enough.
class ReplyPayload
{
public:
    explicit ReplyPayload(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    template<WireNumber T>
    T take()
    {
        WireBits<T> bits = 0;
        for (std::size_t i = 0; i < sizeof(T); ++i)
            bits = static_cast<WireBits<T>>(bits | (WireBits<T>{m_bytes[i]} << (8 * i)));
        m_bytes = m_bytes.subspan(sizeof(T));
        return std::bit_cast<T>(bits);
    }

    /// A null output is skipped.
    template<WireNumber T>
    void take(T* output)
    {
        const T value = take<T>();
        if (output)
            *output = value;
    }

    template<WireNumber T>
    void take(T* outputs, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i)
            take(outputs ? outputs + i : nullptr);
    }

    std::size_t size() const { return m_bytes.size(); }

private:
    std::span<const std::uint8_t> m_bytes;
};

} // namespace vanto
