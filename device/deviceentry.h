#pragma once

#include "vantoprotocol.h"

#include <QString>

namespace vanto
{

/// The node that every hand answers to over SerialCtrl.
constexpr std::uint8_t AnyNode = 0xFF;

/// One hand in the Devices list. text() formats the list entry, parseDeviceEntry() parses it.
struct DeviceEntry {
    std::uint8_t node = 0;
    QString protocolName;
    std::uint8_t firmwareMajor = 0;
    std::uint8_t firmwareMinor = 0;
    std::uint16_t firmwareRevision = 0;
    std::uint8_t protocolMajor = 0;
    std::uint8_t protocolMinor = 0;

    QString text() const;
    /// Whether it stands for every hand on the bus.
    bool isAnyNode() const;
};

/// The data needed to open the device of an entry.
struct DeviceAddress {
    PROTOCOL_TYPE type = PROTOCOL_TYPE_SERIALCTRL;
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
};

enum class EntryError { None, UnknownProtocolType, UnknownProtocolVersion, UnknownDeviceName };

/// Parses the text of an entry. `address` is complete only if the result is None.
EntryError parseDeviceEntry(const QString& text, DeviceAddress& address);

} // namespace vanto
