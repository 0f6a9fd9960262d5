#pragma once

#include <QString>

#include <cstdint>

namespace vanto
{

/// Clicks Stop in the real window at random moments of a running sequence. Afterwards at most the
/// motion already being sent is allowed.
namespace StopTest
{
/// Writes a sequence that plays for long to the working folder and returns the name of the file.
QString writeSequence();
/// Runs `count` stops and returns the number of failures.
int run(int count, std::uint32_t seed, const QString& protocol);
} // namespace StopTest

} // namespace vanto
