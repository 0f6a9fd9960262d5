#pragma once

#include <QFlags>
#include <QString>

#include <optional>

namespace vanto::simulator
{

// Boot is no protocol that a hand is given: all of them have a boot loader.
enum class Protocol { SerialCtrl = 1, Modbus = 2, Boot = 4 };
Q_DECLARE_FLAGS(Protocols, Protocol)

// Who is spoken to, and how.
struct Peer {
    Protocol protocol = Protocol::SerialCtrl;
    quint8 node = 0;
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

inline std::optional<Protocol> protocolNamed(const QString& name)
{
    for (const Protocol protocol : {Protocol::SerialCtrl, Protocol::Modbus}) {
        if (name == protocolName(protocol))
            return protocol;
    }
    return std::nullopt;
}

} // namespace vanto::simulator
