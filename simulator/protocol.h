#pragma once

#include <QFlags>
#include <QString>

#include <cstdint>
#include <optional>

namespace vanto::simulator
{

/// Boot cannot be selected for a hand: every hand has a boot loader.
enum class Protocol { SerialCtrl = 1, Modbus = 2, Boot = 4 };
Q_DECLARE_FLAGS(Protocols, Protocol)

/// The node of a request or reply, and its protocol.
struct Peer {
    Protocol protocol = Protocol::SerialCtrl;
    std::uint8_t node = 0;
};

inline QString protocolName(Protocol protocol)
{
    switch (protocol) {
    case Protocol::SerialCtrl:
        break;
    case Protocol::Modbus:
        return QStringLiteral("modbus");
    case Protocol::Boot:
        return QStringLiteral("boot");
    }
    return QStringLiteral("serialctrl");
}

inline std::optional<Protocol> protocolFromName(const QString& name)
{
    for (const Protocol protocol : {Protocol::SerialCtrl, Protocol::Modbus}) {
        if (name == protocolName(protocol))
            return protocol;
    }
    return std::nullopt;
}

} // namespace vanto::simulator
