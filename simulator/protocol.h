#pragma once

#include <QFlags>
#include <QString>

#include <optional>

namespace simulator
{

enum class Protocol { SerialCtrl = 1, Modbus = 2 };
Q_DECLARE_FLAGS(Protocols, Protocol)

// Who is spoken to, and how.
struct Peer {
    Protocol protocol = Protocol::SerialCtrl;
    quint8 node = 0;
};

inline QString protocolName(Protocol protocol)
{
    return protocol == Protocol::Modbus ? QStringLiteral("modbus") : QStringLiteral("serialctrl");
}

inline std::optional<Protocol> protocolNamed(const QString& name)
{
    for (const Protocol protocol : {Protocol::SerialCtrl, Protocol::Modbus}) {
        if (name == protocolName(protocol))
            return protocol;
    }
    return std::nullopt;
}

} // namespace simulator
