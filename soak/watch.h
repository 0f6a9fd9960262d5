#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace vanto
{

class HandProcess;

/// What must hold whatever the monkey does: no warning of Qt, no event loop that stands still, no
/// two exchanges at a time on the wire, and at certain times no frame that moves a finger.
class Watch : public QObject
{
public:
    /// `slow` allows for sanitizers: the limit on a standing event loop is doubled. On a `busy`
    /// machine the process may have to wait for a processor, so its processor time counts.
    Watch(HandProcess& hand, bool slow, bool busy);
    ~Watch() override;

    /// How many of the frames that the hand has traced move a finger.
    static int motions(const HandProcess& hand);

    /// Frames from here on must not move anything.
    void beginStillness();
    /// Looks at the frames since then.
    void endStillness();
    /// Looks at what the wire carried since the last look, and forgets it.
    void lookAtWire();

    /// Takes down something that must not be.
    void find(const QString& what);
    const QStringList& findings() const { return m_findings; }
    int exchanges() const { return m_exchanges; }
    qint64 longestGapMs() const { return m_longestGapMs; }

private:
    void beat();

    HandProcess& m_hand;
    QTimer m_heart;
    QElapsedTimer m_sinceBeat;
    qint64 m_limitMs;
    qint64 m_longestGapMs = 0;
    qint64 m_workedAtBeat = 0; ///< processor time, ms
    bool m_busyMachine;
    bool m_still = false;
    int m_exchanges = 0;
    QStringList m_findings;
};

} // namespace vanto
