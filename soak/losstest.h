#pragma once

#include <QString>

#include <cstdint>

namespace vanto
{

/// Unplugs the hand at random moments of the window's use and plugs it in again. The loss must be
/// reported once and at once, the hand must come back by itself, and nothing may move meanwhile.
namespace LossTest
{
/// Runs `count` losses and returns the number of failures. The limits are multiplied by `patience`.
int run(int count, std::uint32_t seed, const QString& protocol, int patience);
} // namespace LossTest

} // namespace vanto
