#pragma once

#include <QString>

namespace vanto
{

/// Clicks Stop at random moments of a play in the real window. Afterwards the wire must carry no
/// motion but the one frame that was on its way.
namespace Stops
{
/// The number of stops after which more was sent.
int campaign(int count, quint32 seed, const QString& protocol);
} // namespace Stops

} // namespace vanto
