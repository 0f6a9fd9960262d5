#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vanto
{

/// Reads an input from front to back. A single byte past its end is 0.
class ByteSource
{
public:
    explicit ByteSource(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

    bool isEmpty() const { return m_rest.empty(); }

    std::uint8_t take()
    {
        const auto byte = take(1);
        return byte.empty() ? std::uint8_t{0} : byte.front();
    }

    /// Returns fewer than `count` bytes at the end of the input.
    std::span<const std::uint8_t> take(std::size_t count)
    {
        const auto taken = m_rest.first(std::min(count, m_rest.size()));
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }

private:
    std::span<const std::uint8_t> m_rest;
};

} // namespace vanto
