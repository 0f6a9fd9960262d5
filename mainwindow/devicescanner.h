#pragma once

#include "devicesession.h"
#include "handscan.h"

#include <QCoreApplication>

class DeviceConnector;
class QProgressBar;
class StatusReporter;
namespace Ui
{
class MainWindow;
}

/// The Scan button: scans the chosen port and lists the hands that answer.
class DeviceScanner
{
    Q_DECLARE_TR_FUNCTIONS(DeviceScanner)
public:
    DeviceScanner(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                  StatusReporter* reporter, DeviceConnector* connector);

    /// Starts a scan; while one runs, asks it to stop after the present node.
    void scanClicked();

private:
    void scan();
    void showPortNotOpened();
    void list(const DeviceEntry& entry);
    void setScanning(bool scanning);

    Ui::MainWindow* m_ui;
    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    DeviceConnector* m_connector;
    HandScan m_scan;
    QProgressBar* m_progress;
    QString m_idleCaption; ///< of the Scan button, by which its state is told
};
