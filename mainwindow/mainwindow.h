#pragma once

#include "fingerslots.h"

#include <QColor>
#include <QMainWindow>

#include <future>
#include <memory>

class BasicTab;
class CalibrationProcedure;
class DeviceConnector;
class DeviceScanner;
class DeviceSession;
class FirmwareUpdater;
class PageTimers;
class RunTab;
class SequenceManager;
class SequencePlayer;
class SequenceTab;
class SettingTab;
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

    void reloadSettingInfo();
    void clearSettingInfo();
    void enableWidgetsForSettingTab(bool enable);
    void tabSetting_handleReadPID(unsigned char finger);
    void tabSetting_handleWritePID(unsigned char finger);
    void tabSetting_handleReadCurrentLimit(unsigned char finger);
    void tabSetting_handleWriteCurrentLimit(unsigned char finger);
    void tabSetting_handleReadForceLimit(unsigned char finger);
    void tabSetting_handleWriteForceLimit(unsigned char finger);

    void reloadRunInfo();
    void clearRunInfo();
    void enableWidgetsForRunTab(bool enable);
    void tabRun_handleSliderMoved(unsigned char finger, int value);
    void tabRun_handleSliderReleased(unsigned char finger);
    void tabRun_handleButtonSetPosClick(unsigned char finger);
    void updateCurrent();
    void updateForce();

    void reloadSequenceInfo();
    void clearSequenceInfo();
    void updateSequenceTab();
    void updateEditCell();
    /// 0 is all of the groups 1 editors, 2 table and rows, 3 Load, 4 Save, 5 Run, 6 Stop.
    void enableWidgetsForSequenceTab(int group, bool enable);
    void SwapSequenceRow(int row, int other);
    void tabSequence_handleSpeedEdit(unsigned char finger);
    void tabSequence_handleSliderMoved(unsigned char finger, int value);
    void tabSequence_handleSliderReleased(unsigned char finger);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void sig_updateProgress(int percent);

public slots:
    void on_updateProgress(int percent);
    void updatePlaying(bool isPlaying, int sequenceIndex, qint64 periodInMS, QString errMsg);

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void on_action_Exit_triggered();
    void on_action_Force_Update_triggered();
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
    void on_pushButton_BasicUpdateFirmware_clicked();
    void on_pushButton_BasicRecalibrate_clicked();

    // Six slots each, for example on_pushButton_SettingReadPID0_clicked().
    VANTO_DECLARE_FINGER_SLOTS(pushButton_SettingReadPID, clicked, ())
    VANTO_DECLARE_FINGER_SLOTS(pushButton_SettingWritePID, clicked, ())
    VANTO_DECLARE_FINGER_SLOTS(pushButton_SettingReadCurrentLimit, clicked, ())
    VANTO_DECLARE_FINGER_SLOTS(pushButton_SettingWriteCurrentLimit, clicked, ())
    VANTO_DECLARE_FINGER_SLOTS(pushButton_SettingReadForceLimit, clicked, ())
    VANTO_DECLARE_FINGER_SLOTS(pushButton_SettingWriteForceLimit, clicked, ())

    void on_comboBox_RunPosOrAngle_currentIndexChanged();
    VANTO_DECLARE_FINGER_SLOTS(verticalSlider_RunPos, sliderMoved, (int value))
    VANTO_DECLARE_FINGER_SLOTS(verticalSlider_RunPos, sliderReleased, ())
    VANTO_DECLARE_FINGER_SLOTS(pushButton_RunSetPos, clicked, ())

    void on_pushButton_SeqInsert_clicked();
    void on_pushButton_SeqDelete_clicked();
    void on_pushButton_SeqUp_clicked();
    void on_pushButton_SeqDown_clicked();
    void on_pushButton_SeqRun_clicked();
    void on_pushButton_SeqStop_clicked();
    void on_pushButton_SeqLoad_clicked();
    void on_pushButton_SeqSave_clicked();
    // Hands do not store sequences yet.
    void on_pushButton_SeqReadFromDev_clicked() {}
    void on_pushButton_SeqWriteToDev_clicked() {}
    void on_pushButton_SeqRunOnDev_clicked() {}
    void on_pushButton_SeqStopOnDev_clicked() {}
    void on_tableWidget_Seq_cellDoubleClicked(int row, int column);
    void on_tableWidget_Seq_currentCellChanged(int row, int column, int previousRow,
                                               int previousColumn);
    void on_lineEdit_SeqDelay_editingFinished();
    void on_comboBox_SeqPosOrAngle_currentIndexChanged(int index);
    VANTO_DECLARE_FINGER_SLOTS(lineEdit_SeqSpeed, editingFinished, ())
    VANTO_DECLARE_FINGER_SLOTS(verticalSlider_SeqPos, sliderMoved, (int value))
    VANTO_DECLARE_FINGER_SLOTS(verticalSlider_SeqPos, sliderReleased, ())

private:
    void alignWidths();
    void showAbout();

    std::unique_ptr<Ui::MainWindow> ui;
    std::unique_ptr<DeviceSession> m_session;
    StatusReporter* m_reporter;
    PageTimers* m_timers;
    SequenceManager* m_sequenceManager;
    SequencePlayer* m_sequencePlayer;
    std::unique_ptr<BasicTab> m_basicTab;
    std::unique_ptr<SettingTab> m_settingTab;
    std::unique_ptr<RunTab> m_runTab;
    std::unique_ptr<SequenceTab> m_sequenceTab;
    std::unique_ptr<CalibrationProcedure> m_calibration;
    std::unique_ptr<DeviceConnector> m_connector;
    std::unique_ptr<DeviceScanner> m_scanner;
    std::unique_ptr<FirmwareUpdater> m_updater;
    std::future<void> m_portListing; ///< its end is awaited before the rooms are gone
};
