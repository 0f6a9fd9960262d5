#include "bootloaderlink.h"

#include "serialwait.h"

#include <QDeadlineTimer>
#include <QDebug>
#include <QSerialPort>

#include <array>
#include <utility>

namespace vanto
{

namespace
{
constexpr std::array Probe{'\x00', '\xFF', '\xAA', '\x55'};
constexpr std::uint8_t Presence1 = 0x55;
constexpr std::uint8_t Presence2 = 0xAA;
constexpr std::uint8_t HardwareMatches = 'Y';
constexpr std::uint8_t RecordAccepted = 0x11;

constexpr std::array Spinner{'-', '-', '\\', '\\', '|', '|', '/', '/'};

QString hex(std::uint8_t value)
{
    constexpr int base = 16;
    return QStringLiteral("%1").arg(value, 2, base, QLatin1Char('0'));
}
} // namespace

BootLoaderLink::BootLoaderLink(QSerialPort& port, LogCallback log, ProgressCallback progress,
                               UpdateLimits limits)
    : m_port(port),
      m_log(log ? std::move(log) : [](const QString&) {}),
      m_progress(progress ? std::move(progress) : [](int) {}),
      m_limits(limits)
{
}

void BootLoaderLink::begin()
{
    m_log(tr("Start to update, please keep device power on."));
    m_progress(0);
}

QString BootLoaderLink::wakeUp()
{
    for (int attempt = 0; attempt < m_limits.probes && !hasSerialPortFailed(m_port); ++attempt) {
        clearInput();
        m_log(tr("Waiting for device response, loop %1...").arg(attempt));
        send(Probe);
        if (receivePresence())
            return {};
    }
    m_log(tr("Update failed."));
    return tr("Error when waiting for device.");
}

bool BootLoaderLink::receivePresence()
{
    bool halfway = false;
    const QDeadlineTimer end(m_limits.listenMs);
    while (!end.hasExpired()) {
        const std::optional<std::uint8_t> byte = receive(m_limits.probeMs);
        if (!byte)
            return false;
        m_log(receivedText(*byte));
        qDebug().noquote() << QStringLiteral("Device said: 0x%1['%2']")
                                  .arg(hex(*byte), QString(QLatin1Char(static_cast<char>(*byte))));
        if (halfway && *byte == Presence2)
            return true;
        // As in the hand's own frames, 55 55 AA is not a start.
        halfway = !halfway && *byte == Presence1;
    }
    return false;
}

QString BootLoaderLink::checkHardware(UpdateHardware hardware)
{
    send(std::array{static_cast<char>(hardware.type), static_cast<char>(hardware.version)});
    const std::optional<std::uint8_t> reply = receive(m_limits.matchMs);
    if (!reply)
        return tr("Error when waiting for hardware match flag.");
    m_log(receivedText(*reply));
    const QString type = hex(hardware.type);
    const QString version = hex(hardware.version);
    m_refused = *reply != HardwareMatches;
    if (m_refused)
        return tr("Hardware does not match type 0x%1, version 0x%2.").arg(type, version);
    m_log(tr("Hardware type 0x%1, hardware version 0x%2 matched.").arg(type, version));
    return {};
}

QString BootLoaderLink::transfer(QByteArrayView image)
{
    qsizetype offset = 0;
    int rejections = 0;
    for (std::size_t frame = 0; offset < image.size(); frame = (frame + 1) % Spinner.size()) {
        const auto percent = static_cast<int>(100 * qint64{offset} / image.size());
        m_log(tr("Transferring... %1 %2% done.")
                  .arg(QString(QLatin1Char(Spinner[frame])), QString::number(percent)));
        m_progress(percent);
        const QByteArrayView record = updateRecordAt(image, offset);
        clearInput();
        send(record);
        const std::optional<std::uint8_t> reply = receive(m_limits.recordMs);
        if (!reply)
            return tr("Failed: Target is not responding.");
        if (*reply == RecordAccepted) {
            offset += record.size();
            rejections = 0;
        } else if (++rejections >= m_limits.rejections) {
            m_refused = true;
            return tr("CRC error. File damaged.");
        }
    }
    m_progress(100);
    m_log(tr("Transfer 100% done."));
    return {};
}

// Callbacks process events too, so the port may be closed in any of these functions.

void BootLoaderLink::clearInput()
{
    if (m_port.isOpen())
        m_port.clear(QSerialPort::Input);
}

void BootLoaderLink::send(QByteArrayView bytes)
{
    if (!m_port.isOpen())
        return;
    m_port.write(bytes.data(), bytes.size());
    m_port.flush();
}

std::optional<std::uint8_t> BootLoaderLink::receive(int milliseconds)
{
    char byte = 0;
    if (!waitForSerialPortReadyRead(m_port, milliseconds) || !m_port.getChar(&byte))
        return std::nullopt;
    return static_cast<std::uint8_t>(byte);
}

QString BootLoaderLink::receivedText(std::uint8_t byte) const
{
    return tr("Device said: 0x%1").arg(hex(byte));
}

} // namespace vanto
