#pragma once

#include <QString>

#include <cstdint>

namespace vanto
{

/// Ends the program at random moments of long operations, each time in a separate process.
namespace ExitTest
{
/// Runs `count` exits and returns the number of failures.
int run(int count, std::uint32_t seed, const QString& protocol, const QString& patience);
/// Runs one exit in this process and returns the exit status.
int runOnce(const QString& operation, int afterMs, const QString& protocol);
} // namespace ExitTest

} // namespace vanto
