#pragma once

#include "generation.h"
#include "modbusrtuclient.h"
#include "portwatch.h"

#include <QDeadlineTimer>
#include <QModbusRtuSerialClient>

#include <memory>

class QModbusReply;
class QSerialPort;

namespace vanto
{

/// ModBusRTUClient over QModbusRtuSerialClient: 8 data bits, no parity, one stop bit.
///
/// Disconnects when the far end of the port disappears, see PortWatch. Requests then fail at once.
///
/// Replies carry no sequence number. After a request was repeated or abandoned, a reply to it may
/// still arrive, and the Qt client would take it for the reply to the next request. Therefore the
/// next different request to that slave waits until this is unlikely and discards the input.
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
        QList<std::uint16_t> values; ///< for a read, one zero for each register

        bool operator==(const Request&) const = default;
    };
    struct Reply;

    static Reply waitForReply(QModbusReply* pending, std::shared_ptr<int> waiting);
    static QModbusPdu::FunctionCode functionCode(const Request& request);
    static QModbusRequest toPdu(const Request& request);
    QModbusReply* send(const Request& request);
    Error exchange(const Request& request, Reply& reply);
    bool prepareRequest(const Request& request, int timeoutMs);
    void waitForLateReplies(const Request& next);
    void handleError(QModbusDevice::Error error);
    void renewClient();
    QSerialPort* port() const;
    void ignoreInput(bool ignored);

    QObject m_context; ///< context of the connections
    PortWatch m_watch{[this] { disconnect(); }};
    /// Replaced on every disconnection: the old client may have scheduled work that would access
    /// the closed port, or the port of the next connection.
    std::unique_ptr<QModbusRtuSerialClient> m_client;
    /// Number of requests that wait on the stack. Shared, because the waits may outlive the client.
    std::shared_ptr<int> m_waiting = std::make_shared<int>(0);
    Generation m_opening;
    Request m_unsettled{}; ///< request to which late replies may arrive
    QDeadlineTimer m_unsettledUntil{0};
};

} // namespace vanto
