#pragma once

#include "devicesession.h"

#include <future>

namespace vanto
{

/// Brings a hand back whose port has been lost: looks for the port once a second, opens it and
/// compares the hand that answers with the one that was open. It only reads. Whatever stops the
/// session, such as a Scan or the choice of another port, ends the search.
class Reconnection : public QObject
{
    Q_OBJECT
public:
    explicit Reconnection(DeviceSession* session, QObject* parent = nullptr);

    /// Tries at once, if a search is in progress.
    void tryNow();

signals:
    /// The hand is open again.
    void sig_reconnected(const PortEntry& port);
    /// The port is back, but too little was known of the hand to recognize it.
    void sig_portBack(const PortEntry& port);
    /// The port is back, but cannot be opened, for a reason that the user can remove. The search
    /// goes on.
    void sig_notOpened(const QString& cause);
    /// The port is open again, but the hand does not answer yet. The search goes on.
    void sig_waitingForHand();
    /// Another hand answers at its node; the search has ended.
    void sig_otherHand(const QString& description);

private:
    void begin();
    void look();
    void compare(const QList<PortEntry>& ports);
    void tryHand(const PortEntry& port);
    void noteFailedOpening(const PortEntry& port);

    DeviceSession* m_session;
    QTimer m_timer{this};
    Generation::Token m_search; ///< stale when the search is over
    int m_failedOpenings = 0;   ///< of this search
    bool m_waitingReported = false;
    std::future<void> m_listing;
};

} // namespace vanto
