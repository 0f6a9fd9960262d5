#pragma once

#include <QString>

namespace vanto
{

/// Explains to the user why a serial port cannot be opened and how to fix that; empty if the reason
/// is unknown. Opens the port briefly.
QString describePortError(const QString& portName);

} // namespace vanto
