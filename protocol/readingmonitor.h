#pragma once

#include "generation.h"

#include <QObject>

#include <cstdint>
#include <span>

namespace vanto
{

enum class Quantity : std::uint8_t { Current, Position, Angle, Force };

/// What an operation has read from a hand: one value of each of some successive fingers.
struct Reading {
    std::uint8_t node = 0;
    Generation::Token token{}; ///< that of the target
    Quantity quantity = Quantity::Current;
    std::uint8_t firstFinger = 0;
    std::span<const std::int32_t> values{};
};

/// A current limit that an operation has read.
struct LimitReading {
    std::uint8_t node = 0;
    Generation::Token token{};
    std::uint8_t finger = 0;
    std::uint16_t limit = 0; ///< mA
};

/// Reports every successful read of measured values and of current limits, whoever needed
/// it, for the whole process.
class ReadingMonitor : public QObject
{
    Q_OBJECT
public:
    static ReadingMonitor& instance();

signals:
    void sig_read(const vanto::Reading& reading);
    void sig_currentLimitRead(const vanto::LimitReading& reading);
};

} // namespace vanto
