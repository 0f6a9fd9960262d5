#pragma once

#include "handcall.h"
#include "parameterset.h"

#include <array>

namespace vanto
{

/// The operations that read and write one parameter. All return a result code.
namespace ParameterExchange
{
using Gains = std::array<float, GainKinds>; ///< P, I, D, G

std::uint8_t readGains(HandCall& call, std::uint8_t finger, Gains& gains);
std::uint8_t writeGains(HandCall& call, std::uint8_t finger, const Gains& gains);
/// Parameters other than gains. The value is set on success.
std::uint8_t read(HandCall& call, const ParameterKey& key, ParameterValue& value);
std::uint8_t write(HandCall& call, const ParameterKey& key, const ParameterValue& value);
} // namespace ParameterExchange

} // namespace vanto
