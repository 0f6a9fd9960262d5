#pragma once

#include "updatefile.h"

#include <QCoreApplication>

class QSerialPort;

namespace vanto
{

/// Takes a percentage.
using ProgressCallback = std::function<void(int percent)>;

/// How patient an update is.
struct UpdateLimits {
    int probes = 10;      ///< attempts to wake the boot loader up
    int probeMs = 1000;   ///< wait for each byte of the answer to a probe
    int matchMs = 1000;   ///< wait for the verdict on the hardware
    int recordMs = 4000;  ///< wait for the verdict on a record
    int rejections = 4;   ///< of the same record, with which the update fails
    int listenMs = 10000; ///< to a line that is never silent, until the next probe
};

/// The tool's side of the talk with a boot loader, over an open port:
///
///   tool                         boot loader
///   00 FF AA 55                  55 AA, whatever comes before it
///   hardware type, version       59 ("Y") if they are the hand's; only for files with a header
///   a record                     11 if accepted; the next record, or the same one again
///
/// Nothing says that the last record was the last. Silence, any other byte and a port that goes
/// away end the talk. The steps are called in this order; each returns why it failed, or nothing.
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

private:
    bool hearsPresence();
    void clearInput();
    void send(QByteArrayView bytes);
    std::optional<quint8> receive(int milliseconds);
    QString heard(quint8 byte) const;

    QSerialPort& m_port;
    LogCallback m_log;
    ProgressCallback m_progress;
    UpdateLimits m_limits;
};

} // namespace vanto
