#include "handscan.h"

#include "linemonitor.h"

#include <vector>

namespace vanto
{

namespace
{
/// The protocols to try on every node, in this order.
std::vector<std::shared_ptr<VantoProtocol>> protocolsToTry()
{
    return {
        VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_MODBUS_RTU, ModbusMajorVersion, 0),
        VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, SerialCtrlMajorVersion, 0)};
}
} // namespace

HandScan::HandScan(CallReport& report, QObject* parent) : QObject(parent), m_report(*this, report)
{
    connect(&LineMonitor::instance(), &LineMonitor::sig_portLost, this,
            [this] { m_portLost = true; });
}

bool HandScan::Report::reportTimeout(const HandTarget& target)
{
    return m_scan.m_portLost || m_report.reportTimeout(target);
}

void HandScan::Report::reportFailure(const HandTarget& target, std::string_view operation,
                                     std::uint8_t result, std::uint8_t subError)
{
    if (!m_scan.m_portLost)
        m_report.reportFailure(target, operation, result, subError);
}

HandScan::Outcome HandScan::run(const QString& port, const Generation::Token& token,
                                const Range& range)
{
    m_stop = false;
    m_portLost = false;
    for (int node = range.first; node <= range.last; ++node) {
        if (m_stop)
            return m_portLost ? Outcome::PortLost : Outcome::Stopped;
        emit sig_nodeStarted(node);
        for (const auto& protocol : protocolsToTry()) {
            if (range.protocol && protocol->protocolType() != *range.protocol)
                continue;
            if (!tryNode(port, {protocol, static_cast<std::uint8_t>(node), token}))
                return Outcome::PortNotOpened;
            if (token.isCurrent()) // otherwise what waits for the line comes first
                emit sig_pause();
            if (!token.isCurrent())
                return Outcome::Superseded;
        }
    }
    return m_portLost ? Outcome::PortLost : Outcome::Completed;
}

/// Returns false if the port could not be opened.
bool HandScan::tryNode(const QString& port, const HandTarget& candidate)
{
    HandCall call(candidate, m_report);
    if (!candidate.adapter->connect(port.toUtf8().constData(), BaudRate)) {
        m_failedProtocol = candidate.adapter->protocolType();
        return false;
    }
    m_portLost = false;
    reportIfAnswering(call);
    LineMonitor::instance().checkPorts();
    candidate.adapter->disconnect();
    return true;
}

void HandScan::reportIfAnswering(HandCall& call)
{
    DeviceEntry entry;
    entry.node = call.target().node;
    entry.protocolName = QLatin1String(call.target().adapter->protocolName());
    if (call.perform<&VantoProtocol::getFirmwareVersion>(&entry.firmwareMajor, &entry.firmwareMinor,
                                                         &entry.firmwareRevision) &&
        call.perform<&VantoProtocol::getProtocolVersion>(&entry.protocolMajor,
                                                         &entry.protocolMinor))
        emit sig_found(entry);
}

} // namespace vanto
