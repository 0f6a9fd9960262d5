#pragma once

#include <cstdint>

namespace vanto
{

/// Changes a sequence and its table at random, at most 1,000 times for each seed, undoes all
/// changes and redoes them. Each state must be the one that it was after the change.
namespace EditTest
{
/// Runs `count` seeds and returns the number of failures.
int run(int count, std::uint32_t seed);
} // namespace EditTest

} // namespace vanto
