#pragma once

#include <cstdint>

namespace vanto
{

/// Kills the program at random moments while it edits a sequence. At the next start it must offer
/// the unsaved steps, except for the edits of the last seconds.
namespace KillTest
{
/// Kills `count` processes and returns the number of failures. The limit is multiplied by
/// `patience`.
int run(int count, std::uint32_t seed, int patience);
/// What each of these processes does: restores what is offered, then edits until it is killed.
int edit();
} // namespace KillTest

} // namespace vanto
