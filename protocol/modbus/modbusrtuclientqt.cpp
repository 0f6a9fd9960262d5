#include "modbusrtuclientqt.h"

#include <QDebug>
#include <QEventLoop>
#include <QMetaEnum>
#include <QModbusReply>
#include <QPointer>
#include <QSerialPort>

#include <algorithm>
#include <utility>

namespace
{
constexpr int ReadTimeoutMs = 50;
constexpr int WriteTimeoutMs = 200; ///< a hand stores some values before it answers
constexpr int Retries = 1;

using Registers = QList<std::uint16_t>;

QModbusDataUnit holdingRegisters(std::uint16_t start, const Registers& values)
{
    return {QModbusDataUnit::HoldingRegisters, start, values};
}

struct Reply {
    QModbusDevice::Error error = QModbusDevice::NoError;
    QString errorText;
    Registers values;
};

/// Waits for the reply and disposes of it. The wait also ends when the application quits or the
/// client is destroyed; what is unfinished then has failed. `waiting` counts the waits.
Reply take(QModbusReply* pending, std::shared_ptr<int> waiting)
{
    const QPointer<QModbusReply> reply(pending);
    if (!reply->isFinished()) {
        QEventLoop loop;
        QObject::connect(reply, &QModbusReply::finished, &loop, &QEventLoop::quit);
        QObject::connect(reply, &QObject::destroyed, &loop, &QEventLoop::quit);
        ++*waiting;
        loop.exec();
        --*waiting;
    }
    if (!reply)
        return {QModbusDevice::ReplyAbortedError, QStringLiteral("Client destroyed."), {}};
    reply->deleteLater();
    if (!reply->isFinished())
        return {QModbusDevice::ReplyAbortedError, QStringLiteral("Wait ended."), {}};
    return {reply->error(), reply->errorString(), reply->result().values()};
}
} // namespace

ModBusRTUClientQT::ModBusRTUClientQT()
{
    QObject::connect(&m_client, &QModbusDevice::errorOccurred, &m_client,
                     [this](QModbusDevice::Error error) { handleError(error); });
}

ModBusRTUClientQT::~ModBusRTUClientQT()
{
    disconnect();
}

bool ModBusRTUClientQT::connect(const char* portName, std::uint32_t baudRate)
{
    const std::pair<QModbusDevice::ConnectionParameter, QVariant> parameters[] = {
        {QModbusDevice::SerialPortNameParameter, QString::fromUtf8(portName)},
        {QModbusDevice::SerialBaudRateParameter, baudRate},
        {QModbusDevice::SerialParityParameter, QSerialPort::NoParity},
        {QModbusDevice::SerialDataBitsParameter, QSerialPort::Data8},
        {QModbusDevice::SerialStopBitsParameter, QSerialPort::OneStop},
    };
    for (const auto& [parameter, value] : parameters)
        m_client.setConnectionParameter(parameter, value);
    m_client.setTimeout(ReadTimeoutMs);
    m_client.setNumberOfRetries(Retries);
    ++m_opening;
    return m_client.connectDevice();
}

void ModBusRTUClientQT::disconnect()
{
    m_client.disconnectDevice();
}

ModBusRTUClient::Error ModBusRTUClientQT::readRegisters(std::uint8_t slave, std::uint16_t start,
                                                        std::uint16_t count, Registers& values)
{
    if (!makeReady(ReadTimeoutMs))
        return ConnectionError;
    QModbusReply* const pending =
        m_client.sendReadRequest(holdingRegisters(start, Registers(count, 0)), slave);
    if (!pending)
        return notSent();
    const Reply reply = take(pending, m_waiting);
    if (reply.error != QModbusDevice::NoError)
        return translateError(reply.error);
    values = reply.values;
    if (values.size() == count)
        return NoError;
    qDebug("Invalid values.size() %lld, expected %d", qlonglong{values.size()}, int{count});
    return ReadError;
}

ModBusRTUClient::Error ModBusRTUClientQT::writeRegisters(std::uint8_t slave, std::uint16_t start,
                                                         const Registers& values)
{
    if (!makeReady(WriteTimeoutMs))
        return ConnectionError;
    QModbusReply* const pending = m_client.sendWriteRequest(holdingRegisters(start, values), slave);
    if (!pending)
        return notSent();
    const Reply reply = take(pending, m_waiting);
    qDebug().noquote().nospace() << "sendWriteRequest replied "
                                 << QMetaEnum::fromType<QModbusDevice::Error>().valueToKey(
                                        reply.error)
                                 << ", " << reply.errorText;
    return translateError(reply.error);
}

ModBusRTUClient::Error ModBusRTUClientQT::translateError(QModbusDevice::Error e)
{
    return static_cast<Error>(std::min<int>(e, UnknownError));
}

/// False, with the reason on the log, if nothing can be sent; the Qt client would warn.
bool ModBusRTUClientQT::makeReady(int timeoutMs)
{
    m_client.setTimeout(timeoutMs);
    if (m_client.state() != QModbusDevice::ConnectedState) {
        qDebug("Device not connected.");
        return false;
    }
    // A late reply to an earlier request must not pass for the answer to this one; but what comes
    // for a request that is still waiting, further down the stack, has to stay.
    auto* const port = qobject_cast<QSerialPort*>(m_client.device());
    if (port && *m_waiting == 0)
        port->clear(QSerialPort::Input);
    return true;
}

ModBusRTUClient::Error ModBusRTUClientQT::notSent() const
{
    qDebug().noquote() << m_client.errorString();
    return translateError(m_client.error());
}

void ModBusRTUClientQT::handleError(QModbusDevice::Error error)
{
    // A request that cannot be sent is no fault of the line.
    const bool lineFailed = error == QModbusDevice::ReadError ||
                            error == QModbusDevice::WriteError ||
                            error == QModbusDevice::ConnectionError;
    if (!lineFailed || m_client.state() != QModbusDevice::ConnectedState ||
        m_closingFor == m_opening)
        return;
    m_closingFor = m_opening;
    // Disconnecting inside the client's own signal is not safe; by the time of the queued call the
    // port may have been opened anew, and that opening is not to be closed.
    QMetaObject::invokeMethod(
        &m_client,
        [this, opening = m_opening] {
            if (opening == m_opening)
                disconnect();
        },
        Qt::QueuedConnection);
}
