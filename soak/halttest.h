#pragma once

#include <QString>

#include <cstdint>

namespace vanto
{

/// Halts the hand at random moments of the window's use. The fingers must stop at once and stay
/// where they are until Continue.
namespace HaltTest
{
/// Runs `count` halts with each kind of simulated hand, or with one, and returns 0 if there
/// are no findings. The limits are multiplied by `patience`.
int run(int count, std::uint32_t seed, const QString& protocol, const QString& kind, int patience);
} // namespace HaltTest

} // namespace vanto
