#pragma once

#include <array>
#include <cstddef>

namespace vanto
{

/// The hand's fingers; all per-finger arrays are in this order.
enum Finger : unsigned char { Thumb, Index, Middle, Third, Little, ThumbRoot };

inline constexpr std::size_t FingerCount = 6;
/// The one that is asked for its force to find out whether a hand has force sensing.
inline constexpr unsigned char ForceProbeFinger = Index;

template<class T>
using PerFinger = std::array<T, FingerCount>;

} // namespace vanto
