#pragma once

#include "generation.h"
#include "modbusrtuclient.h"
#include "portwatch.h"

#include <QDeadlineTimer>
#include <QModbusRtuSerialClient>

#include <memory>

class QModbusReply;

namespace vanto
{

/// ModBusRTUClient over QModbusRtuSerialClient: 8 data bits, no parity, one stop bit.
///
/// A client whose port has lost its far end disconnects itself, see PortWatch; requests then fail
/// at once.
///
/// A reply carries no number. After a request that had to be repeated or was given up, a reply to
/// it may still be on its way, and the Qt client would take it for the answer to the next request.
/// So the next, different request to that slave waits until that is unlikely and drops what came.
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
    struct Request {
        std::uint8_t slave;
        std::uint16_t start;
        bool isWrite;
        QList<std::uint16_t> values; ///< of a read as many zeros as registers are asked for

        bool operator==(const Request&) const = default;
    };
    struct Reply;

    static Reply take(QModbusReply* pending, std::shared_ptr<int> waiting);
    static QModbusPdu::FunctionCode functionOf(const Request& request);
    static QModbusRequest pduOf(const Request& request);
    QModbusReply* send(const Request& request);
    Error exchange(const Request& request, Reply& reply);
    bool makeReady(const Request& request, int timeoutMs);
    void waitForStragglers(const Request& next);
    void handleError(QModbusDevice::Error error);
    void renewClient();

    QObject m_context; ///< of what is to be called later
    PortWatch m_watch{[this] { disconnect(); }};
    /// Replaced at every disconnection: the old one may still have a turn of its queue scheduled,
    /// which would touch the closed port, or that of the next connection.
    std::unique_ptr<QModbusRtuSerialClient> m_client;
    /// Requests that wait, one below the other on the stack; outlives the client for their sake.
    std::shared_ptr<int> m_waiting = std::make_shared<int>(0);
    Generation m_opening;
    Request m_unsettled{}; ///< a request to which late replies may come
    QDeadlineTimer m_unsettledUntil{0};
};

} // namespace vanto
