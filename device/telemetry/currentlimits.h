#pragma once

#include "fingers.h"
#include "generation.h"

#include <QObject>

#include <cstdint>
#include <optional>

namespace vanto
{

using FingerLimits = PerFinger<std::optional<std::uint16_t>>; ///< mA, as far as they are known

/// The current limits of the hand, as they were read or written last by anything in this process.
class CurrentLimits : public QObject
{
    Q_OBJECT
public:
    explicit CurrentLimits(QObject* parent = nullptr);

    /// Those of the hand with this node, if it is still open.
    FingerLimits of(std::uint8_t node) const;

signals:
    void sig_changed();

private:
    struct Limit {
        std::uint8_t node = 0;
        Generation::Token token{};
        std::optional<std::uint16_t> milliamperes{};
    };

    void note(std::uint8_t finger, const Limit& limit);

    PerFinger<Limit> m_limits;
};

} // namespace vanto
