#pragma once

#include <QString>

#include <optional>

namespace vanto
{

/// Why a serial port cannot be used.
enum class PortProblem { None, NoPort, NotThere, NoPermission, InUse, Unknown };

/// Opens the port briefly.
PortProblem examinePort(const QString& portName);

/// A program that uses a serial port.
struct PortHolder {
    qint64 process = 0;
    QString program;
};

/// The program that holds the port, if it has left a lock file.
std::optional<PortHolder> findPortHolder(const QString& portName);

/// Returns a text for the user that explains why a serial port cannot be opened and how to fix
/// this, or an empty string if the reason is unknown. Opens the port briefly.
QString describePortError(const QString& portName);

} // namespace vanto
