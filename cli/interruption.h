#pragma once

#include <QObject>

class QSocketNotifier;

namespace vanto
{

/// Receives SIGINT, SIGTERM and SIGHUP, as an event. SIGPIPE is ignored, so that writing fails
/// instead. Only one object may exist.
class Interruption : public QObject
{
    Q_OBJECT
public:
    explicit Interruption(QObject* parent = nullptr);
    ~Interruption() override;

    /// Whether a signal has arrived; true at once, before the event.
    static bool isRequested();
    /// Whether the fingers have to be halted: SIGTERM or SIGHUP, or a second signal.
    static bool isHaltRequested();
    /// From now on the first SIGINT halts the fingers, too.
    static void haltAtFirst();

signals:
    /// Emitted for each signal.
    void sig_requested();

private:
    void receive();

    QSocketNotifier* m_notifier;
};

} // namespace vanto
