#pragma once

#include "devicesession.h"

#include <QCoreApplication>

class DeviceConnector;
class QProgressBar;
class StatusReporter;
namespace Ui
{
class MainWindow;
}

/// The scan of a port: tries every node with every protocol and lists the hands that answer.
class DeviceScanner
{
    Q_DECLARE_TR_FUNCTIONS(DeviceScanner)
public:
    DeviceScanner(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                  StatusReporter* reporter, DeviceConnector* connector);

    /// Starts a scan; while one runs, asks it to stop after the present node.
    void scanClicked();

private:
    enum class Outcome { AllTried, Stopped, PortNotOpened, Superseded };

    void scan();
    Outcome tryNodes(const QString& port);
    /// False when the port could not be opened.
    bool tryNode(const QString& port, const DeviceSession::Target& candidate);
    void listIfAnswering(const DeviceSession::Target& candidate);
    void tellThatPortIsClosed();
    void setScanning(bool scanning);

    Ui::MainWindow* m_ui;
    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    DeviceConnector* m_connector;
    QProgressBar* m_progress;
    QString m_idleCaption; ///< of the Scan button, by which its state is told
    QString m_failure;     ///< why the port could not be opened
    bool m_stop = false;
};
