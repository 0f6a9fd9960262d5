// The time that the adapter adds to a Modbus request, compared with the Qt client on the same line.

#include "figures.h"
#include "handcall.h"
#include "handprocess.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QModbusReply>
#include <QModbusRtuSerialClient>

#ifdef VANTO_HAVE_LIBMODBUS
#include <modbus/modbus.h>
#endif

#include <cstdio>
#include <functional>

namespace vanto
{

namespace
{
constexpr std::uint8_t HandNode = 2;
constexpr std::uint8_t AbsentNode = 77;
constexpr int VoltageRegister = 1007;
constexpr int TimeoutMs = 50;
constexpr int Retries = 1;
constexpr int Rounds = 20; ///< the clients alternate, because the load of the machine varies
constexpr int ReadsPerRound = 100;
constexpr int AbsentPerRound = 4;
constexpr double ReadBar = 1.05;
constexpr double AbsentBar = 1.03;
constexpr double MsPerNs = 1e-6;

/// One of the clients; `read` returns whether the node answered.
struct Client {
    std::function<bool(const char* port)> open;
    std::function<bool(std::uint8_t node)> read;
    std::function<void()> close;
    std::vector<double> present;
    std::vector<double> absent;
};

Client adapterOf(const std::shared_ptr<VantoProtocol>& adapter)
{
    return {[adapter](const char* port) { return adapter->connect(port, BaudRate); },
            [adapter](std::uint8_t node) {
                const LineHold line;
                std::uint16_t voltage = 0;
                return adapter->getBatteryVoltage(node, &voltage) == ResultCode::Success;
            },
            [adapter] { adapter->disconnect(); },
            {},
            {}};
}

bool readBare(QModbusRtuSerialClient& client, std::uint8_t node)
{
    const QModbusDataUnit unit(QModbusDataUnit::HoldingRegisters, VoltageRegister, quint16{1});
    QModbusReply* const reply = client.sendReadRequest(unit, node);
    if (!reply)
        return false;
    if (!reply->isFinished()) {
        QEventLoop loop;
        QObject::connect(reply, &QModbusReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
    }
    reply->deleteLater();
    return reply->error() == QModbusDevice::NoError && reply->result().valueCount() == 1;
}

Client bare(QModbusRtuSerialClient& client)
{
    return {[&client](const char* port) {
                client.setConnectionParameter(QModbusDevice::SerialPortNameParameter,
                                              QString::fromUtf8(port));
                client.setConnectionParameter(QModbusDevice::SerialBaudRateParameter, BaudRate);
                client.setConnectionParameter(QModbusDevice::SerialParityParameter, 0);
                client.setTimeout(TimeoutMs);
                client.setNumberOfRetries(Retries);
                return client.connectDevice();
            },
            [&client](std::uint8_t node) { return readBare(client, node); },
            [&client] { client.disconnectDevice(); },
            {},
            {}};
}

/// Adds the time of each read in ms; false if the result was unexpected.
bool time(const Client& subject, std::uint8_t node, int count, std::vector<double>& times)
{
    for (int i = 0; i < count; ++i) {
        QElapsedTimer timer;
        timer.start();
        if (subject.read(node) != (node == HandNode))
            return false;
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    return true;
}

bool runRound(Client& subject, const char* port)
{
    if (!subject.open(port))
        return false;
    const bool good = time(subject, HandNode, ReadsPerRound, subject.present) &&
                      time(subject, AbsentNode, AbsentPerRound, subject.absent);
    subject.close();
    return good;
}

/// Prints the time of a read with another implementation, if available.
void printReference([[maybe_unused]] const char* port)
{
#ifdef VANTO_HAVE_LIBMODBUS
    modbus_t* const context = modbus_new_rtu(port, BaudRate, 'N', 8, 1);
    modbus_set_slave(context, HandNode);
    std::vector<double> times;
    const Client libmodbus{[=](const char*) { return modbus_connect(context) == 0; },
                           [=](std::uint8_t) {
                               std::uint16_t value = 0;
                               return modbus_read_registers(context, VoltageRegister, 1, &value) ==
                                      1;
                           },
                           [=] { modbus_close(context); },
                           {},
                           {}};
    if (libmodbus.open(port) && time(libmodbus, HandNode, Rounds * ReadsPerRound, times))
        std::printf("     register read with libmodbus, for reference %13.3f ms\n", median(times));
    libmodbus.close();
    modbus_free(context);
#endif
}
} // namespace

int runProgram(int argc, char* argv[])
{
    silenceLog();
    const QCoreApplication application(argc, argv);
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("%1:modbus").arg(HandNode)})) {
        std::fprintf(stderr, "%s\n", qPrintable(hand.errorText()));
        return 1;
    }
    const QByteArray port = hand.portName().toUtf8();
    QModbusRtuSerialClient client;
    Client ours = adapterOf(VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_MODBUS_RTU, 1, 0));
    Client base = bare(client);
    for (int round = 0; round < Rounds; ++round) {
        if (!runRound(ours, port.constData()) || !runRound(base, port.constData())) {
            std::fprintf(stderr, "a request had an unexpected result\n");
            return 1;
        }
    }
    bool good = report({"register read over Modbus, against the bare client", median(ours.present),
                        "ms", median(base.present), ReadBar});
    good &= report({"absent node over Modbus, against the bare client", median(ours.absent), "ms",
                    median(base.absent), AbsentBar});
    printReference(port.constData());
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
