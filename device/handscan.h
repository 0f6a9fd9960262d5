#pragma once

#include "deviceentry.h"
#include "handcall.h"

#include <QObject>

namespace vanto
{

/// Tries every node of a port with every protocol and reports the hands that answer.
class HandScan : public QObject
{
    Q_OBJECT
public:
    static constexpr int FirstNode = 1;
    static constexpr int LastNode = 255;

    enum class Outcome { AllTried, Stopped, PortNotOpened, Superseded };

    /// Time-outs of nodes that are absent are reported like all failures.
    explicit HandScan(CallReport& report, QObject* parent = nullptr);

    /// Returns when all nodes have been tried, at the stop, when the port cannot be opened, or when
    /// `token` has become stale. Events are processed meanwhile.
    Outcome run(const QString& port, const Generation::Token& token);
    /// Ends the scan after the present node.
    void stop() { m_stop = true; }
    /// The protocol with which the port could not be opened.
    PROTOCOL_TYPE failedProtocol() const { return m_failedProtocol; }

signals:
    void sig_nodeBegins(int node);
    void sig_found(const DeviceEntry& entry);
    /// Between two conversations: what waits may be done.
    void sig_pause();

private:
    bool tryNode(const QString& port, const HandTarget& candidate);
    void reportIfAnswering(HandCall& call);

    CallReport& m_report;
    bool m_stop = false;
    PROTOCOL_TYPE m_failedProtocol{};
};

} // namespace vanto
