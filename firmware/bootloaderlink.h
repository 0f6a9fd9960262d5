#pragma once

#include "updatefile.h"

#include <QCoreApplication>

class QSerialPort;

namespace vanto
{

/// Receives the progress as a percentage.
using ProgressCallback = std::function<void(int percent)>;

/// Attempts and time-outs of an update.
struct UpdateLimits {
    int probes = 10;      ///< attempts to wake the boot loader up
    int probeMs = 1000;   ///< wait for each byte of the reply to a probe
    int matchMs = 1000;   ///< wait for the reply to the hardware type and version
    int recordMs = 4000;  ///< wait for the reply to a record
    int rejections = 4;   ///< of one record, after which the update fails
    int listenMs = 10000; ///< maximum wait on a line that is never silent, before the next probe
};

/// The tool's side of the boot loader protocol, over an open port:
///
///   tool                         boot loader
///   00 FF AA 55                  55 AA, possibly after other bytes
///   hardware type, version       59 ("Y") if they match the hand; only for files with a header
///   a record                     11 if accepted; the next record, or the same one again
///
/// The last record is not marked. A time-out, any other byte or the loss of the port ends the
/// update. Call the functions in the order of their declaration; each returns the reason of a
/// failure, or an empty string.
class BootLoaderLink
{
    Q_DECLARE_TR_FUNCTIONS(BootLoaderLink)

public:
    BootLoaderLink(QSerialPort& port, LogCallback log, ProgressCallback progress,
                   UpdateLimits limits);

    void begin();
    QString wakeUp();
    QString checkHardware(UpdateHardware hardware);
    QString transfer(QByteArrayView image);

    /// Whether the last failure is a refusal by the boot loader, not a missing reply.
    bool wasRefused() const { return m_refused; }

private:
    bool receivePresence();
    void clearInput();
    void send(QByteArrayView bytes);
    std::optional<std::uint8_t> receive(int milliseconds);
    QString receivedText(std::uint8_t byte) const;

    QSerialPort& m_port;
    LogCallback m_log;
    ProgressCallback m_progress;
    UpdateLimits m_limits;
    bool m_refused = false;
};

} // namespace vanto
