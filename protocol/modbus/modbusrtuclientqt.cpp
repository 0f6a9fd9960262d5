#include "modbusrtuclientqt.h"

#include "conversation.h"
#include "modbustrace.h"
#include "replylimits.h"
#include "unreadlimit.h"

#include <QDebug>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>
#include <QMetaEnum>
#include <QModbusReply>
#include <QPointer>
#include <QScopeGuard>
#include <QSerialPort>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace vanto
{

namespace
{
constexpr int Retries = 1;
constexpr int AbandonCheckMs = 5; ///< interval of the checks for an abandoned exchange

/// How long replies to a repeated request may still arrive after its end. Allows for hands that
/// take up to three read time-outs to answer.
int settlingMs(bool isWrite, bool mayBeStale)
{
    const ReplyLimits& limits = ReplyLimits::current();
    if (isWrite)
        return limits.modbusWrite;
    // This reply may belong to an earlier request; then the request's own reply is still to come.
    return mayBeStale ? 3 * limits.modbusRead : 2 * limits.modbusRead;
}

using Registers = QList<std::uint16_t>;

QModbusDataUnit holdingRegisters(std::uint16_t start, const Registers& values)
{
    return {QModbusDataUnit::HoldingRegisters, start, values};
}
} // namespace

struct ModBusRTUClientQT::Reply {
    QModbusDevice::Error error = QModbusDevice::NoError;
    QString errorText;
    Registers values;
    QByteArray data{}; ///< data of the frame, for the trace
};

/// Waits for the reply and deletes it. The wait also ends when the application quits or the client
/// is destroyed; an unfinished reply then counts as failed. `waiting` counts the nested waits;
/// by value, because it may outlive the client.
ModBusRTUClientQT::Reply ModBusRTUClientQT::waitForReply(
    QModbusReply* pending,
    std::shared_ptr<int> waiting) // NOLINT(performance-unnecessary-value-param)
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
        return {QModbusDevice::ReplyAbortedError, QStringLiteral("Client destroyed."), {}, {}};
    reply->deleteLater();
    if (!reply->isFinished())
        return {QModbusDevice::ReplyAbortedError, QStringLiteral("Wait ended."), {}, {}};
    return {reply->error(), reply->errorString(), reply->result().values(),
            reply->rawResult().data()};
}

ModBusRTUClientQT::ModBusRTUClientQT()
{
    // Qt warns of every damaged or late frame. They are reported as failures of their requests.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.modbus.warning=false"));
    renewClient();
}

ModBusRTUClientQT::~ModBusRTUClientQT()
{
    m_client->disconnectDevice();
}

void ModBusRTUClientQT::renewClient()
{
    m_client = std::make_unique<QModbusRtuSerialClient>();
    QObject::connect(m_client.get(), &QModbusDevice::errorOccurred, &m_context,
                     [this](QModbusDevice::Error error) { handleError(error); });
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
        m_client->setConnectionParameter(parameter, value);
    m_client->setTimeout(ReplyLimits::current().modbusRead);
    m_client->setNumberOfRetries(Retries);
    if (!m_client->connectDevice())
        return false;
    m_opening.advance();
    m_watch.start(port());
    ignoreInput(true);
    return true;
}

void ModBusRTUClientQT::disconnect()
{
    m_watch.stop();
    ignoreInput(false);
    m_client->disconnectDevice();
    renewClient();
}

QSerialPort* ModBusRTUClientQT::port() const
{
    return qobject_cast<QSerialPort*>(m_client->device());
}

/// The Qt client collects everything that arrives, without a limit, even if it has sent no request.
/// While its port is silenced, it collects nothing, and the buffer of the port is limited.
void ModBusRTUClientQT::ignoreInput(bool ignored)
{
    QSerialPort* const serialPort = port();
    if (!serialPort)
        return;
    serialPort->blockSignals(ignored);
    limitUnread(*serialPort);
}

ModBusRTUClient::Error ModBusRTUClientQT::readRegisters(std::uint8_t slave, std::uint16_t start,
                                                        std::uint16_t count, Registers& values)
{
    Reply reply;
    const Error error = exchange({slave, start, false, Registers(count, 0)}, reply);
    if (error != NoError)
        return error;
    values = reply.values;
    if (values.size() == count)
        return NoError;
    qDebug("Invalid values.size() %lld, expected %d", qlonglong{values.size()}, int{count});
    return ReadError;
}

ModBusRTUClient::Error ModBusRTUClientQT::writeRegisters(std::uint8_t slave, std::uint16_t start,
                                                         const Registers& values)
{
    Reply reply;
    return exchange({slave, start, true, values}, reply);
}

/// The function code that the Qt client uses for the request.
QModbusPdu::FunctionCode ModBusRTUClientQT::functionCode(const Request& request)
{
    if (!request.isWrite)
        return QModbusPdu::ReadHoldingRegisters;
    return request.values.size() == 1 ? QModbusPdu::WriteSingleRegister
                                      : QModbusPdu::WriteMultipleRegisters;
}

QModbusRequest ModBusRTUClientQT::toPdu(const Request& request)
{
    const auto function = functionCode(request);
    const auto count = static_cast<std::uint16_t>(request.values.size());
    if (function == QModbusPdu::ReadHoldingRegisters)
        return QModbusRequest(function, request.start, count);
    if (function == QModbusPdu::WriteSingleRegister)
        return QModbusRequest(function, request.start, request.values.constFirst());
    return QModbusRequest(function, request.start, count, static_cast<std::uint8_t>(2 * count),
                          request.values);
}

QModbusReply* ModBusRTUClientQT::send(const Request& request)
{
    ModbusTrace::request(request.slave, functionCode(request), toPdu(request).data());
    const QModbusDataUnit registers = holdingRegisters(request.start, request.values);
    return request.isWrite ? m_client->sendWriteRequest(registers, request.slave)
                           : m_client->sendReadRequest(registers, request.slave);
}

ModBusRTUClient::Error ModBusRTUClientQT::exchange(const Request& request, Reply& reply)
{
    const ReplyLimits& limits = ReplyLimits::current();
    const int timeoutMs = request.isWrite ? limits.modbusWrite : limits.modbusRead;
    if (!prepareRequest(request, timeoutMs))
        return ConnectionError;
    const QPointer<QModbusRtuSerialClient> alive(m_client.get());
    const auto atEnd = qScopeGuard([this, alive] {
        if (alive && *m_waiting == 0)
            ignoreInput(true);
    });
    if (Exchange::abandoned())
        return ReplyAbortedError;
    const bool mayBeStale = request == m_unsettled && !m_unsettledUntil.hasExpired();
    QElapsedTimer timer;
    timer.start();
    // A write may move a finger, and the user may stop the hand meanwhile. The Qt client's own
    // retry could not be prevented.
    m_client->setNumberOfRetries(request.isWrite ? 0 : Retries);
    const int tries = request.isWrite ? 1 + Retries : 1;
    for (int i = 0; i < tries; ++i) {
        QModbusReply* const pending = send(request);
        if (!pending) {
            qDebug().noquote() << m_client->errorString();
            return translateError(m_client->error());
        }
        reply = waitForReply(pending, m_waiting);
        ModbusTrace::reply(request.slave, functionCode(request), reply.data, reply.error,
                           static_cast<std::uint8_t>(translateError(reply.error)));
        if (reply.error != QModbusDevice::TimeoutError || !alive || Exchange::abandoned())
            break;
    }
    if (alive && (mayBeStale || timer.hasExpired(timeoutMs))) {
        m_unsettled = request;
        m_unsettledUntil.setRemainingTime(settlingMs(request.isWrite, mayBeStale));
    }
    if (request.isWrite)
        qDebug().noquote().nospace()
            << "sendWriteRequest replied "
            << QMetaEnum::fromType<QModbusDevice::Error>().valueToKey(reply.error) << ", "
            << reply.errorText;
    else if (reply.error != QModbusDevice::NoError)
        qDebug().noquote() << reply.errorText;
    return translateError(reply.error);
}

ModBusRTUClient::Error ModBusRTUClientQT::translateError(QModbusDevice::Error e)
{
    return static_cast<Error>(std::min<int>(e, UnknownError));
}

/// Returns false and logs the reason if nothing can be sent; the Qt client would warn.
bool ModBusRTUClientQT::prepareRequest(const Request& request, int timeoutMs)
{
    const QPointer<QModbusRtuSerialClient> alive(m_client.get());
    const Generation::Token opening = m_opening.token();
    waitForLateReplies(request);
    if (!alive)
        return false;
    m_client->setTimeout(timeoutMs);
    if (m_client->state() != QModbusDevice::ConnectedState || !opening.isCurrent()) {
        qDebug("Device not connected.");
        return false;
    }
    // A late reply to an earlier request must not be taken for the reply to this one. Input for
    // requests that still wait, deeper in the stack, must be kept.
    if (port() && port()->isOpen() && *m_waiting == 0) {
        port()->clear(QSerialPort::Input);
        ignoreInput(false);
    }
    return true;
}

void ModBusRTUClientQT::waitForLateReplies(const Request& next)
{
    if (m_unsettledUntil.hasExpired() || next.slave != m_unsettled.slave || next == m_unsettled)
        return;
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(m_unsettledUntil.remainingTime()), Qt::PreciseTimer, &loop,
                       &QEventLoop::quit);
    QTimer checkTimer;
    const QPointer<QModbusRtuSerialClient> alive(m_client.get());
    QObject::connect(&checkTimer, &QTimer::timeout, &loop, [&loop, &alive] {
        if (!alive || Exchange::abandoned())
            loop.quit();
    });
    checkTimer.start(AbandonCheckMs);
    loop.exec();
}

void ModBusRTUClientQT::handleError(QModbusDevice::Error error)
{
    // A request that cannot be sent is not a failure of the line.
    const bool lineFailed = error == QModbusDevice::ReadError ||
                            error == QModbusDevice::WriteError ||
                            error == QModbusDevice::ConnectionError;
    if (lineFailed)
        m_watch.closeLater();
}

} // namespace vanto
