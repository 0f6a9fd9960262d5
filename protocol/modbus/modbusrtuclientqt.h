#pragma once

#include "modbusrtuclient.h"

#include <QModbusRtuSerialClient>

class QModbusReply;

/// ModBusRTUClient over QModbusRtuSerialClient: 8 data bits, no parity, one stop bit.
///
/// A port whose far end has gone makes the Qt client report the same error hundreds of thousands
/// of times a second while it stays "connected". Such a client disconnects itself; requests then
/// fail at once.
class ModBusRTUClientQT : public ModBusRTUClient
{
public:
    ModBusRTUClientQT();
    ~ModBusRTUClientQT() override;

    bool connect(const char* portName, std::uint32_t baudRate) override;
    void disconnect() override;
    Error readRegisters(std::uint8_t slave, std::uint16_t start, std::uint16_t count,
                        QList<std::uint16_t>& values) override;
    Error writeRegisters(std::uint8_t slave, std::uint16_t start,
                         const QList<std::uint16_t>& values) override;

    static Error translateError(QModbusDevice::Error e);

private:
    bool makeReady(int timeoutMs);
    Error notSent() const;
    void handleError(QModbusDevice::Error error);

    QModbusRtuSerialClient m_client;
    /// Requests that wait, one below the other on the stack; outlives the client for their sake.
    std::shared_ptr<int> m_waiting = std::make_shared<int>(0);
    unsigned m_opening = 0;    ///< number of the present opening
    unsigned m_closingFor = 0; ///< the opening for which a close is on its way
};
