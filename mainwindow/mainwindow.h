#pragma once

#include "currentlimits.h"
#include "idletask.h"

#include <QColor>
#include <QMainWindow>

#include <memory>

namespace vanto
{

class CalibrationProcedure;
class DeviceSession;
class FirmwareUpdater;
class MonitorDock;
class ParameterActions;
class ParameterBackups;
class StatusReporter;
namespace Ui
{
class MainWindow;
}

/// The main window: menus, the device bar, the pages and the status bar. It creates the objects
/// that these share; each page implements its own behaviour.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Closes the device connection; a device must be open.
    void closeDevice();
    /// Closes the device connection, if any.
    void closeDeviceIfOpen();
    void showErrorOnStatusBar(const QString& text, const QColor& color);

    /// Passes key presses in the sequence table to the Sequence page.
    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void sig_updateProgress(int percent);

public slots:
    void on_updateProgress(int percent);

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_action_Save_Parameters_triggered();
    void on_action_Restore_Parameters_triggered();
    void on_action_Hand_Information_triggered();
    void on_action_Exit_triggered();
    void on_action_Messages_triggered();
    void on_action_Monitor_triggered();
    void on_action_Force_Update_triggered();
    void on_action_Theme_triggered();
    void on_action_Open_Node_triggered();
    void on_action_Scan_Range_triggered();
    void on_action_About_triggered();
    void on_tabWidget_currentChanged(int index);
    // These two buttons start procedures with dialogs of the main window.
    void on_pushButton_BasicUpdateFirmware_clicked();
    void on_pushButton_BasicRecalibrate_clicked();

private:
    void exitAfterHalt();
    void setUpPages();
    void setUpParameters();
    void showAbout();
    void showMonitor();

    std::unique_ptr<Ui::MainWindow> ui;
    std::unique_ptr<DeviceSession> m_session;
    StatusReporter* m_reporter = nullptr;
    std::unique_ptr<ParameterBackups> m_backups;
    std::unique_ptr<ParameterActions> m_parameters;
    CurrentLimits m_currentLimits;    ///< read before the monitor is shown
    MonitorDock* m_monitor = nullptr; ///< null until it is shown first
    IdleTask m_showingMonitor;
    std::unique_ptr<CalibrationProcedure> m_calibration;
    std::unique_ptr<FirmwareUpdater> m_updater;
    bool m_exits = false;
};

} // namespace vanto
