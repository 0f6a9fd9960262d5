#pragma once

#include <QList>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace vanto
{

/// What tells an adapter from others, whatever name its port has.
struct AdapterId {
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    QString serialNumber; ///< many adapters have none

    bool operator==(const AdapterId&) const = default;
};

/// A serial port as the Ports list shows it.
struct PortEntry {
    QString name;                          ///< name for opening the port
    QString description;                   ///< shown in parentheses
    QString details{};                     ///< product, serial number and ids, one per line
    std::optional<AdapterId> adapter = {}; ///< of ports that have one
    bool isUnique = true;                  ///< no other adapter has the same ids

    QString text() const { return QStringLiteral("%1 (%2)").arg(name, description); }
    bool operator==(const PortEntry&) const = default;
};

/// The system's ports in the system's order, then those of the environment variable VANTO_PORTS:
/// paths separated by ':' for ports that the system does not list (pseudo-terminals, links under
/// /dev/serial/by-id, links made by serial-over-network tools).
QList<PortEntry> availablePorts();

/// The ports of VANTO_PORTS.
QStringList addedPorts();

/// Whether a lost port can be recognized when it is back. The number of a pseudo-terminal is given
/// to the next program that wants one.
bool canComeBack(const PortEntry& lost);
/// Whether the name of a port still belongs to the same adapter.
bool isSameAdapter(const PortEntry& known, const QList<PortEntry>& ports);
/// The port among `ports` that a lost port has become. An adapter is the same if its ids and serial
/// number are, under whatever name. Without a serial number the name must be the same too, and only
/// one adapter may have these ids. A serial number that several adapters have counts as none. A
/// port without ids is the same by its name.
const PortEntry* findAgain(const PortEntry& lost, const QList<PortEntry>& ports);

} // namespace vanto
