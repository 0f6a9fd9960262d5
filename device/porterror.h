#pragma once

#include <QString>

namespace vanto
{

/// Why a serial port cannot be opened and what to do about it, in plain words; empty where that
/// cannot be known. Looks at the port for a moment.
QString describePortError(const QString& portName);

} // namespace vanto
