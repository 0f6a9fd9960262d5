#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vanto
{

/// Takes an input apart from front to back; behind its end there are zeros.
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

    /// Fewer than `count` bytes if that is all there is.
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
