#pragma once

#include <QString>

#include <cstdint>

namespace vanto
{

/// Opens one port with `vantoctl` and with the window, one after the other. Some of them are
/// killed.
namespace AlternateTest
{
/// Opens the port `count` times. Returns 0 if each program has reached the hand and has left no
/// lock file, unless it was killed.
int run(int count, std::uint32_t seed, const QString& protocol, const QString& patience);
/// Opens the first hand at the port in the window, and exits. Returns 0 if it was opened.
int openOnce(const QString& port);
} // namespace AlternateTest

} // namespace vanto
