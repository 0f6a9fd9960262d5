#pragma once

#include "handcommands.h"
#include "operationoverrides.h"
#include "vantoprotocol.h"

#include <map>

namespace vanto
{

class SerialPort;

/// The adapter for SerialCtrl hands, major version 3. Every operation is one command of the
/// VantoSerialAPI; result codes are returned unchanged. An operation without a connection returns
/// HAND_NO_CONTEXT.
///
/// An operation keeps port and context alive while it runs, so disconnect() may be called
/// meanwhile: the port closes at once and the operation times out.
class SerialProtocolV3 : public VantoProtocol
{
public:
    PROTOCOL_TYPE protocolType() const override { return PROTOCOL_TYPE_SERIALCTRL; }
    const char* protocolName() const override { return "SerialCtrl"; }
    int protocolVersion() const override { return SerialCtrlMajorVersion; }

    bool connect(const char* portName, std::uint32_t baudRate) override;
    void disconnect() override;

    std::uint8_t getNodeError(std::uint8_t node) override { return m_nodeErrors[node]; }
    void setNodeError(std::uint8_t node, std::uint8_t value) { m_nodeErrors[node] = value; }
    static std::uint8_t translateError(std::uint32_t code) { return static_cast<u8>(code); }

    VANTO_OVERRIDE_OPERATIONS

private:
    template<class Command, class... Arguments>
    u8 exchange(Command command, u8 node, Arguments... arguments);
    template<class Command, class... Arguments>
    u8 exchangeWithin(int milliseconds, Command command, u8 node, Arguments... arguments);

    std::shared_ptr<SerialPort> m_port;
    std::shared_ptr<HAND_Context> m_context;
    std::map<u8, u8> m_nodeErrors; ///< sub error of the most recent exchange with each node
};

} // namespace vanto
