#pragma once

#include <QColor>
#include <QMainWindow>

#include <memory>

class BasicTab;
class DeviceConnector;
class DeviceScanner;
class DeviceSession;
class PageTimers;
class StatusReporter;
namespace Ui
{
class MainWindow;
}

/// The program's window. It composes the rooms, each of which does its own work, and forwards
/// the form's signals to them.
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Ends the device connection; a device must be open.
    void closeDevice();
    /// Ends the device connection, if there is one.
    void closeDeviceIfOpen();
    void showErrorOnStatusBar(const QString& text, const QColor& colour);

    void reloadBasicInfo();
    void clearBasicInfo();
    void enableWidgetsForBasicTab(bool enable);

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_action_Exit_triggered();
    void on_action_Theme_triggered();
    void on_action_About_triggered();

    void on_pushButton_RefreshPorts_clicked();
    void on_comboBox_Ports_currentIndexChanged(int index);
    void on_pushButton_ScanDevices_clicked();
    void on_comboBox_Devices_currentIndexChanged(int index);
    void on_tabWidget_currentChanged(int index);

    void on_pushButton_BasicReloadBasic_clicked();
    void on_pushButton_BasicSetID_clicked();
    void on_pushButton_BasicBeep_clicked();
    void on_pushButton_BasicSetSelfTestLevel_clicked();
    void on_pushButton_BasicSetBeepSwitch_clicked();
    void on_pushButton_BasicStartInit_clicked();
    void on_pushButton_BasicReset_clicked();

private:
    void showAbout();

    std::unique_ptr<Ui::MainWindow> ui;
    std::unique_ptr<DeviceSession> m_session;
    StatusReporter* m_reporter;
    PageTimers* m_timers;
    std::unique_ptr<BasicTab> m_basicTab;
    std::unique_ptr<DeviceConnector> m_connector;
    std::unique_ptr<DeviceScanner> m_scanner;
};
