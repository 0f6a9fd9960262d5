#pragma once

#include <cstdint>
#include <memory>

namespace vanto
{

/// Detects references to an outdated state of an object. A token refers to the state in which it
/// was created and becomes stale when advance() is called or the object is destroyed. Tokens may
/// outlive the object.
class Generation
{
public:
    class Token
    {
    public:
        /// Refers to no state; never current.
        Token() = default;
        bool isCurrent() const { return m_now && *m_now == m_number; }

    private:
        friend Generation;
        explicit Token(const std::shared_ptr<const std::uint64_t>& now) : m_now(now), m_number(*now)
        {
        }

        std::shared_ptr<const std::uint64_t> m_now;
        std::uint64_t m_number = 0;
    };

    Generation() = default;
    ~Generation() { advance(); }
    Generation(const Generation&) = delete;
    Generation& operator=(const Generation&) = delete;

    Token token() const { return Token(m_now); }
    /// Makes all existing tokens stale.
    void advance() { ++*m_now; }

private:
    std::shared_ptr<std::uint64_t> m_now = std::make_shared<std::uint64_t>(0);
};

} // namespace vanto
