#pragma once

#include "handscan.h"

class QProgressBar;
class QPushButton;

namespace vanto
{

class DeviceSession;
class StatusReporter;

/// Runs a scan and shows it: its progress, Stop in place of Scan, and why it has failed.
class ScanRunner : public QObject
{
    Q_OBJECT
public:
    /// `button` starts and stops scans; it owns this object.
    ScanRunner(QPushButton* button, DeviceSession* session, StatusReporter* reporter);

    /// Whether a click on the button stops a scan instead of starting one.
    bool isRunning() const;
    void stop() { m_scan.stop(); }
    /// Tries the nodes of `range` on `port`.
    HandScan::Outcome run(const QString& port, const HandScan::Range& range);

    /// The nodes of the next scans that the user starts.
    const HandScan::Range& range() const { return m_range; }
    void setRange(const HandScan::Range& range);

signals:
    void sig_found(const DeviceEntry& entry);

private:
    void createProgressBar();
    void showRunning(bool running);
    void showPortNotOpened(const QString& port);

    QPushButton* m_button;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    HandScan m_scan;
    HandScan::Range m_range;
    QProgressBar* m_progress = nullptr;
    const QString m_idleCaption; ///< of the button while no scan runs
};

} // namespace vanto
