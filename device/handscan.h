#pragma once

#include "deviceentry.h"
#include "handcall.h"

#include <QObject>

#include <optional>

namespace vanto
{

/// Tries every node of a port with every protocol and reports the hands that answer.
class HandScan : public QObject
{
    Q_OBJECT
public:
    /// Which hands are looked for.
    struct Range {
        int first = 1;
        int last = 255;
        std::optional<PROTOCOL_TYPE> protocol = {}; ///< all if there is none
    };

    enum class Outcome { Completed, Stopped, PortNotOpened, PortLost, Superseded };

    /// `report` also receives the time-outs of absent nodes.
    explicit HandScan(CallReport& report, QObject* parent = nullptr);

    /// Tries the nodes of `range`. Returns after the last node, after stop(), if the port cannot be
    /// opened, or once `token` is stale. The outcome is PortLost if the port has vanished at the
    /// last node that was tried. Processes events meanwhile.
    Outcome run(const QString& port, const Generation::Token& token, const Range& range);
    /// Ends the scan after the current node.
    void stop() { m_stop = true; }
    /// The protocol with which the port could not be opened.
    PROTOCOL_TYPE failedProtocol() const { return m_failedProtocol; }

signals:
    void sig_nodeStarted(int node);
    void sig_found(const DeviceEntry& entry);
    /// Emitted between two conversations, so that waiting jobs can run.
    void sig_pause();

private:
    /// Leaves out what fails because the port has vanished.
    class Report : public CallReport
    {
    public:
        Report(const HandScan& scan, CallReport& report) : m_scan(scan), m_report(report) {}
        bool reportTimeout(const HandTarget& target) override;
        void reportFailure(const HandTarget& target, std::string_view operation,
                           std::uint8_t result, std::uint8_t subError) override;

    private:
        const HandScan& m_scan;
        CallReport& m_report;
    };

    bool tryNode(const QString& port, const HandTarget& candidate);
    void reportIfAnswering(HandCall& call);

    Report m_report;
    bool m_stop = false;
    bool m_portLost = false; ///< since it was opened
    PROTOCOL_TYPE m_failedProtocol{};
};

} // namespace vanto
