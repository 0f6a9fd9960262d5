#pragma once

#include <QString>

namespace vanto
{

/// Returns a text for the user that explains why a serial port cannot be opened and how to fix
/// this, or an empty string if the reason is unknown. Opens the port briefly.
QString describePortError(const QString& portName);

} // namespace vanto
