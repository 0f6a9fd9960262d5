#pragma once

#include <QString>

namespace vanto
{

/// Ends the program at random moments of long operations, each in a process of its own.
namespace Ending
{
/// Runs `count` of them; the number of those that did not end well.
int campaign(int count, quint32 seed, const QString& protocol, const QString& patience);
/// One of them, in the present process: its exit status.
int perform(const QString& operation, int afterMs, const QString& protocol);
} // namespace Ending

} // namespace vanto
