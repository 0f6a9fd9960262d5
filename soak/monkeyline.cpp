// How the monkey chooses and disturbs the connection.

#include "monkey.h"
#include "replylimits.h"

#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int DisconnectedMs = 700;
constexpr int ReconnectionMs = 2000; ///< two searches of the window
constexpr int ShortestScanMs = 700;
constexpr int ScannedNodes = 4;
constexpr int ScanCheckMs = 50;
constexpr int HandCount = 2;
constexpr int LongestSilenceMs = 5000;
constexpr int RequestsPerFault = 8;
} // namespace

void Monkey::changeDevice()
{
    selectRandomItem(m_driver.devices());
}

void Monkey::changePort()
{
    selectRandomItem(m_driver.ports());
}

/// Reconnects as a user does: selects the port, scans, stops the scan.
void Monkey::reconnect()
{
    if (!m_driver.ports()->isEnabled())
        return;
    m_driver.click("pushButton_RefreshPorts");
    m_driver.choosePort(m_hand.portName());
    auto* scan = m_driver.find<QPushButton>("pushButton_ScanDevices");
    // A scan tries SerialCtrl first, so it needs a time-out for each hand with Modbus.
    const QDeadlineTimer deadline(ShortestScanMs +
                                  ScannedNodes * ReplyLimits::current().serialCtrl);
    auto* stopping = new QTimer(scan);
    connect(stopping, &QTimer::timeout, scan, [this, stopping, scan, deadline] {
        if (!deadline.hasExpired() && m_driver.devices()->count() < HandCount)
            return;
        stopping->deleteLater();
        if (scan->text() != m_scanText)
            m_driver.click(scan->objectName());
    });
    stopping->start(ScanCheckMs);
    m_driver.click(scan->objectName());
}

/// Arms a fault for one of the next ten requests. In total it affects at most one request in eight:
/// with longer time-outs there are fewer requests, but as many actions.
void Monkey::injectFault()
{
    const int requests = m_hand.command(QStringLiteral("stats"))
                             .section(QStringLiteral("requests="), 1)
                             .section(QLatin1Char(' '), 0, 0)
                             .toInt();
    if (requests - m_requestsAtFault < RequestsPerFault)
        return;
    m_requestsAtFault = requests;
    ++m_counts[QStringLiteral("armed fault")];
    static const QStringList faults{QStringLiteral("drop"),        QStringLiteral("late"),
                                    QStringLiteral("garble"),      QStringLiteral("truncate"),
                                    QStringLiteral("wrong-node"),  QStringLiteral("wrong-command"),
                                    QStringLiteral("over-long"),   QStringLiteral("short"),
                                    QStringLiteral("noise"),       QStringLiteral("garbage"),
                                    QStringLiteral("refuse"),      QStringLiteral("refuse-bare"),
                                    QStringLiteral("wrong-finger")};
    m_hand.command(QStringLiteral("fault %1 skip=%2")
                       .arg(faults[randomBelow(static_cast<int>(faults.size()))])
                       .arg(randomBelow(10)));
}

/// Half of the time the port is left to the window, which looks for it by itself.
void Monkey::interruptConnection()
{
    const bool isLeft = randomBelow(2) == 0;
    if (isLeft)
        m_left.setRemainingTime(DisconnectedMs + ReconnectionMs);
    m_hand.command(QStringLiteral("unplug"));
    QTimer::singleShot(DisconnectedMs, this, [this, isLeft] {
        m_hand.command(QStringLiteral("replug"));
        m_hand.command(QStringLiteral("clear"));
        if (!isLeft)
            reconnect();
    });
}

/// The hands do not answer for a while, in most cases until the window has noticed it and asks by
/// itself.
void Monkey::silenceHands()
{
    const int noticedMs = 8 * ReplyLimits::current().modbusRead;
    const int silentMs = DisconnectedMs + randomBelow(std::min(2 * noticedMs, LongestSilenceMs));
    m_hand.command(QStringLiteral("hang"));
    m_left.setRemainingTime(silentMs + ReconnectionMs);
    QTimer::singleShot(silentMs, this, [this] {
        m_hand.command(QStringLiteral("hang off"));
        m_hand.command(QStringLiteral("clear"));
    });
}

} // namespace vanto
