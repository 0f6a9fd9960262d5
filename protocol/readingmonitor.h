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

/// Reports every successful read of measured values, whoever needed it, for the whole process.
class ReadingMonitor : public QObject
{
    Q_OBJECT
public:
    static ReadingMonitor& instance();

signals:
    void sig_read(const vanto::Reading& reading);
};

} // namespace vanto
