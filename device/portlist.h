#pragma once

#include <QList>
#include <QString>

namespace vanto
{

/// A serial port as the Ports list shows it.
struct PortEntry {
    QString name;        ///< name for opening the port
    QString description; ///< shown in parentheses
    QString details{};   ///< product, serial number and ids of the adapter, one per line

    QString text() const { return QStringLiteral("%1 (%2)").arg(name, description); }
};

/// The system's ports in the system's order, then those of the environment variable VANTO_PORTS:
/// paths separated by ':' for ports that the system does not list (pseudo-terminals, links under
/// /dev/serial/by-id, links made by serial-over-network tools).
QList<PortEntry> availablePorts();

} // namespace vanto
