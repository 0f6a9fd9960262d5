// The duration of an exchange while the window is shown, the part of it that keeps its frames, and
// the duration of an absent node in a scan.

#include "bench.h"
#include "figures.h"
#include "framelog.h"
#include "handcall.h"
#include "theme.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QStatusBar>
#include <QTemporaryDir>

#include <array>
#include <cstdio>

namespace vanto
{

namespace
{
constexpr std::uint8_t HandNode = 2;
constexpr std::uint8_t AbsentNode = 77;
constexpr int WarmUps = 50;
constexpr int Exchanges = 3001;
constexpr int AbsentTries = 101;
constexpr int ModbusAbsentTries = 21;
constexpr int ScannedNodes = 60; ///< from node 3 on, all absent
constexpr double TickMs = 1;     ///< interval of checks for a reply
constexpr double TimeoutMs = 50; ///< of a command
constexpr double Bar = 1.05;
constexpr double MsPerNs = 1e-6;
constexpr int LoggedExchanges = 100'000; ///< twenty times what the frame log holds
constexpr double LogShare = 0.01;        ///< of an exchange that the frame log may take

std::uint8_t readVersion(VantoProtocol& adapter, std::uint8_t node)
{
    const LineHold line;
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    std::uint16_t revision = 0;
    return adapter.getFirmwareVersion(node, &major, &minor, &revision);
}

/// Median in ms of `count` requests to the node; negative if one does not return `expected`.
double medianOf(VantoProtocol& adapter, std::uint8_t node, int count, std::uint8_t expected)
{
    std::vector<double> times;
    for (int i = 0; i < count; ++i) {
        QElapsedTimer timer;
        timer.start();
        if (readVersion(adapter, node) != expected)
            return -1;
        times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    return median(times);
}

/// Mean time in ms that the frame log takes for the two frames of an exchange like those above.
double loggingTime()
{
    constexpr std::array<std::uint8_t, 7> request{0x55, 0xAA, 0x02, 0x01, 0x01, 0x00, 0x02};
    constexpr std::array<std::uint8_t, 11> reply{0x55, 0xAA, 0x01, 0x02, 0x01, 0x04,
                                                 0x07, 0x00, 0x04, 0x01, 0x04};
    FrameLog& log = FrameLog::instance();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < LoggedExchanges; ++i) {
        log.noteSent(PROTOCOL_TYPE_SERIALCTRL, request);
        log.noteReceived(PROTOCOL_TYPE_SERIALCTRL, reply, ResultCode::Success);
    }
    return static_cast<double>(timer.nsecsElapsed()) * MsPerNs / LoggedExchanges;
}

/// Median time of an absent node in a scan, from one "Trying node" to the next.
double medianOfScan(const WindowDriver& tool, const QString& port)
{
    tool.choosePort(port);
    std::vector<double> times;
    QElapsedTimer timer;
    int tried = 0;
    const auto connection = QObject::connect(
        tool.window()->statusBar(), &QStatusBar::messageChanged, [&](const QString& text) {
            if (!text.startsWith(QLatin1String("Trying node")))
                return;
            if (++tried > HandNode + 1)
                times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
            timer.start();
            if (times.size() == ScannedNodes)
                tool.click("pushButton_ScanDevices");
        });
    tool.click("pushButton_ScanDevices");
    QObject::disconnect(connection);
    return times.size() >= ScannedNodes ? median(times) : -1;
}

bool measured(double value, const char* what)
{
    if (value < 0)
        std::fprintf(stderr, "%s had an unexpected result\n", what);
    return value >= 0;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    silenceLog();
    QApplication application(argc, argv);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const BenchHand hand({QStringLiteral("--node"), QString::number(HandNode)});
    const WindowDriver tool({hand.portName()}, Theme::applyStored);
    while (tool.ports()->findData(hand.portName()) < 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);

    const auto adapter = VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, 3, 0);
    if (!adapter->connect(hand.portName().toUtf8().constData(), BaudRate)) {
        std::fprintf(stderr, "the port cannot be opened\n");
        return 1;
    }
    medianOf(*adapter, HandNode, WarmUps, ResultCode::Success);
    const double exchange = medianOf(*adapter, HandNode, Exchanges, ResultCode::Success);
    const double absent = medianOf(*adapter, AbsentNode, AbsentTries, ResultCode::Timeout);
    adapter->disconnect();
    const auto modbus = VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_MODBUS_RTU, 1, 0);
    modbus->connect(hand.portName().toUtf8().constData(), BaudRate);
    const double modbusAbsent =
        medianOf(*modbus, AbsentNode, ModbusAbsentTries, ResultCode::Timeout);
    modbus->disconnect();
    const double scanned = medianOfScan(tool, hand.portName());
    if (!measured(exchange, "an exchange") || !measured(absent, "a request to an absent node") ||
        !measured(modbusAbsent, "a Modbus request to an absent node") ||
        !measured(scanned, "the scan"))
        return 1;

    bool good = report({"exchange, in ticks", exchange, "ms", TickMs, Bar});
    good &= report({"frame log, part of an exchange", loggingTime(), "ms", LogShare * exchange, 1});
    good &= report({"request to an absent node", absent, "ms", TimeoutMs, Bar});
    good &= report(
        {"absent node in a scan, both protocols", scanned, "ms", TimeoutMs + modbusAbsent, Bar});
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
