#pragma once

#include <QObject>

#include <cstdint>

namespace vanto
{

/// Reports what is noticed about serial lines, for the whole process. It stands between the
/// adapters, which know nothing of a session, and the session.
class LineMonitor : public QObject
{
    Q_OBJECT
public:
    static LineMonitor& instance();

    /// Checks now whether the open ports still exist, instead of at their next regular check.
    void checkPorts() { emit sig_checkPorts(); }
    void reportLoss() { emit sig_portLost(); }
    void reportResult(std::uint8_t result) { emit sig_operationEnded(result); }

signals:
    void sig_checkPorts();
    /// A port that was open has vanished; it is closed soon. This can be emitted inside an
    /// exchange.
    void sig_portLost();
    /// An operation of a hand has ended, with one of the result codes.
    void sig_operationEnded(std::uint8_t result);
};

} // namespace vanto
