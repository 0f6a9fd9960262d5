#include "mainwindow.h"

#include "basictab.h"
#include "calibrationprocedure.h"
#include "deviceconnector.h"
#include "devicescanner.h"
#include "devicesession.h"
#include "firmwareupdater.h"
#include "pagetimers.h"
#include "portlist.h"
#include "program.h"
#include "runtab.h"
#include "sequencemanager.h"
#include "sequenceplayer.h"
#include "sequencetab.h"
#include "settingtab.h"
#include "statusreporter.h"
#include "theme.h"
#include "ui_mainwindow.h"
#include "uniformwidth.h"

#include <QCloseEvent>
#include <QDebug>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::MainWindow>())
{
    ui->setupUi(this);
    // The one long header gets its room, the other columns share the rest.
    auto* columns = ui->tableWidget_Seq->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Stretch);
    columns->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    columns->setHighlightSections(false); // rows are selected
    alignWidths();
    setWindowTitle(Program::title() + QStringLiteral(" - ") + QLatin1String(Program::Version));
    setWindowIcon(QIcon(QStringLiteral("://images/icon.ico")));

    m_session = std::make_unique<DeviceSession>([devices = ui->comboBox_Devices] {
        return devices->currentIndex() < 0
                   ? std::optional<std::uint8_t>()
                   : static_cast<std::uint8_t>(devices->currentData().toInt());
    });
    m_reporter = new StatusReporter(ui->statusBar);
    m_timers = new PageTimers(ui->tabWidget, m_session.get());
    m_basicTab = std::make_unique<BasicTab>(ui.get(), this, m_session.get(), m_reporter);
    m_settingTab = std::make_unique<SettingTab>(ui.get(), this, m_session.get(), m_reporter);
    m_runTab = std::make_unique<RunTab>(ui.get(), this, m_session.get(), m_reporter, m_timers);
    m_sequenceManager = new SequenceManager(this);
    m_sequencePlayer = new SequencePlayer(this);
    m_sequenceTab = std::make_unique<SequenceTab>(ui.get(), this, m_session.get(), m_reporter,
                                                  m_timers, m_sequenceManager, m_sequencePlayer);
    m_calibration =
        std::make_unique<CalibrationProcedure>(ui.get(), this, m_session.get(), m_reporter);
    connect(m_sequencePlayer, &SequencePlayer::sig_updatePlaying, this, &MainWindow::updatePlaying);
    m_connector = std::make_unique<DeviceConnector>(
        ui.get(), this, m_session.get(), m_timers,
        std::vector<TabRoom*>{m_basicTab.get(), m_settingTab.get(), m_runTab.get(),
                              m_sequenceTab.get()});
    m_scanner = std::make_unique<DeviceScanner>(ui.get(), this, m_session.get(), m_reporter,
                                                m_connector.get());
    m_updater = std::make_unique<FirmwareUpdater>(
        ui.get(), this, m_session.get(), m_reporter, m_connector.get(),
        [this](int percent) { emit sig_updateProgress(percent); });
    connect(this, &MainWindow::sig_updateProgress, this, &MainWindow::on_updateProgress);
    connect(m_timers, &PageTimers::sig_runTick, this, &MainWindow::updateCurrent);
    connect(m_timers, &PageTimers::sig_forceTick, this, &MainWindow::updateForce);
    m_connector->forgetDevices();
    // The system takes longer to list its ports than Qt to build the form.
    m_portListing = std::async(std::launch::async, [this] {
        QMetaObject::invokeMethod(
            this, [this, ports = availablePorts()] { m_connector->listPortsAtStart(ports); });
    });
}

void MainWindow::alignWidths()
{
    new UniformWidth({ui->pushButton_RefreshPorts, ui->pushButton_ScanDevices});
    QList<QWidget*> sequenceButtons;
    for (QPushButton* button : ui->tab_Sequence->findChildren<QPushButton*>())
        sequenceButtons.append(button);
    new UniformWidth(sequenceButtons);
}

MainWindow::~MainWindow()
{
    // Widgets signal while they are destroyed, and then the rooms are gone.
    m_session->shutDown();
    for (QObject* child : findChildren<QObject*>())
        child->disconnect(this);
}

void MainWindow::closeDevice()
{
    m_session->close();
}

void MainWindow::closeDeviceIfOpen()
{
    m_session->closeIfConnected();
}

void MainWindow::showErrorOnStatusBar(const QString& text, const QColor& colour)
{
    m_reporter->showError(text, colour);
}

void MainWindow::reloadBasicInfo()
{
    m_basicTab->reloadClicked();
}

void MainWindow::clearBasicInfo()
{
    m_basicTab->clear();
}

void MainWindow::enableWidgetsForBasicTab(bool enable)
{
    m_basicTab->setWidgetsEnabled(enable);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(m_updater->mayEnd());
    if (event->isAccepted())
        on_action_Exit_triggered();
}

void MainWindow::on_action_Exit_triggered()
{
    if (!m_updater->mayEnd())
        return;
    m_session->shutDown();
    QCoreApplication::exit(0);
}

void MainWindow::on_action_Force_Update_triggered()
{
    on_pushButton_BasicUpdateFirmware_clicked();
}

void MainWindow::on_action_Theme_triggered()
{
    m_session->runWhenIdle(DeviceSession::Kind::Theme, [this] { Theme::choose(this); });
}

void MainWindow::on_action_About_triggered()
{
    m_session->runWhenIdle(DeviceSession::Kind::About, [this] { showAbout(); });
}

void MainWindow::showAbout()
{
    const QString text = Program::title() + QLatin1Char(' ') + QLatin1String(Program::Version) +
                         tr("\n\nSupported protocol:") +
                         tr("\n    SerialCtrl Protocol Ver %1.x").arg(SerialCtrlMajorVersion) +
                         tr("\n    ModBus-RTU Protocol Ver %1.x").arg(ModbusMajorVersion);
    QMessageBox::information(this, Program::title(), text);
}

void MainWindow::on_pushButton_RefreshPorts_clicked()
{
    m_connector->refreshClicked();
}

void MainWindow::on_comboBox_Ports_currentIndexChanged(int)
{
    m_connector->portChanged();
}

void MainWindow::on_pushButton_ScanDevices_clicked()
{
    m_scanner->scanClicked();
}

void MainWindow::on_comboBox_Devices_currentIndexChanged(int index)
{
    m_connector->deviceChanged(index);
}

void MainWindow::on_tabWidget_currentChanged(int)
{
    m_timers->followCurrentPage();
}

void MainWindow::on_pushButton_BasicReloadBasic_clicked()
{
    m_basicTab->reloadClicked();
}

void MainWindow::on_pushButton_BasicSetID_clicked()
{
    m_basicTab->setIdClicked();
}

void MainWindow::on_pushButton_BasicBeep_clicked()
{
    m_basicTab->beepClicked();
}

void MainWindow::on_pushButton_BasicSetSelfTestLevel_clicked()
{
    m_basicTab->setSelfTestLevelClicked();
}

void MainWindow::on_pushButton_BasicSetBeepSwitch_clicked()
{
    m_basicTab->setBeepSwitchClicked();
}

void MainWindow::on_pushButton_BasicStartInit_clicked()
{
    m_basicTab->startInitClicked();
}

void MainWindow::on_pushButton_BasicReset_clicked()
{
    m_basicTab->resetClicked();
}

void MainWindow::on_pushButton_BasicUpdateFirmware_clicked()
{
    m_updater->updateClicked();
}

void MainWindow::on_updateProgress(int percent)
{
    m_updater->showProgress(percent);
}

void MainWindow::on_pushButton_BasicRecalibrate_clicked()
{
    m_calibration->recalibrateClicked();
}

void MainWindow::reloadSettingInfo()
{
    m_session->runWhenIdle(DeviceSession::Kind::ReloadSetting, [this] { m_settingTab->reload(); });
}

void MainWindow::clearSettingInfo()
{
    m_settingTab->clear();
}
void MainWindow::enableWidgetsForSettingTab(bool enable)
{
    m_settingTab->setWidgetsEnabled(enable);
}

void MainWindow::tabSetting_handleReadPID(unsigned char finger)
{
    m_settingTab->handleReadPID(finger);
}

void MainWindow::tabSetting_handleWritePID(unsigned char finger)
{
    m_settingTab->handleWritePID(finger);
}

void MainWindow::tabSetting_handleReadCurrentLimit(unsigned char finger)
{
    m_settingTab->handleReadCurrentLimit(finger);
}

void MainWindow::tabSetting_handleWriteCurrentLimit(unsigned char finger)
{
    m_settingTab->handleWriteCurrentLimit(finger);
}

void MainWindow::tabSetting_handleReadForceLimit(unsigned char finger)
{
    m_settingTab->handleReadForceLimit(finger);
}

void MainWindow::tabSetting_handleWriteForceLimit(unsigned char finger)
{
    m_settingTab->handleWriteForceLimit(finger);
}
VANTO_DEFINE_FINGER_SLOTS(pushButton_SettingReadPID, clicked, tabSetting_handleReadPID)
VANTO_DEFINE_FINGER_SLOTS(pushButton_SettingWritePID, clicked, tabSetting_handleWritePID)
VANTO_DEFINE_FINGER_SLOTS(pushButton_SettingReadCurrentLimit, clicked,
                          tabSetting_handleReadCurrentLimit)
VANTO_DEFINE_FINGER_SLOTS(pushButton_SettingWriteCurrentLimit, clicked,
                          tabSetting_handleWriteCurrentLimit)
VANTO_DEFINE_FINGER_SLOTS(pushButton_SettingReadForceLimit, clicked,
                          tabSetting_handleReadForceLimit)
VANTO_DEFINE_FINGER_SLOTS(pushButton_SettingWriteForceLimit, clicked,
                          tabSetting_handleWriteForceLimit)

void MainWindow::reloadRunInfo()
{
    m_runTab->modeChanged();
}
void MainWindow::clearRunInfo()
{
    m_runTab->clear();
}
void MainWindow::enableWidgetsForRunTab(bool enable)
{
    m_runTab->setWidgetsEnabled(enable);
}
void MainWindow::tabRun_handleSliderMoved(unsigned char finger, int value)
{
    m_runTab->handleSliderMoved(finger, value);
}
void MainWindow::tabRun_handleSliderReleased(unsigned char finger)
{
    m_runTab->handleSliderReleased(finger);
}
void MainWindow::tabRun_handleButtonSetPosClick(unsigned char finger)
{
    m_runTab->handleButtonSetPosClick(finger);
}
void MainWindow::updateCurrent()
{
    m_runTab->updateCurrent();
}
void MainWindow::updateForce()
{
    qDebug() << "MainWindow::updateForce()";
}
void MainWindow::on_comboBox_RunPosOrAngle_currentIndexChanged()
{
    reloadRunInfo();
}
VANTO_DEFINE_FINGER_VALUE_SLOTS(verticalSlider_RunPos, sliderMoved, tabRun_handleSliderMoved)
VANTO_DEFINE_FINGER_SLOTS(verticalSlider_RunPos, sliderReleased, tabRun_handleSliderReleased)
VANTO_DEFINE_FINGER_SLOTS(pushButton_RunSetPos, clicked, tabRun_handleButtonSetPosClick)

void MainWindow::reloadSequenceInfo()
{
    m_sequenceTab->reload();
}
void MainWindow::clearSequenceInfo()
{
    m_sequenceTab->clear();
}
void MainWindow::updateSequenceTab()
{
    m_sequenceTab->update();
}
void MainWindow::updateEditCell()
{
    m_sequenceTab->updateEditCell();
}
void MainWindow::enableWidgetsForSequenceTab(int group, bool enable)
{
    m_sequenceTab->enableGroup(static_cast<SequenceTab::Group>(group), enable);
}
void MainWindow::SwapSequenceRow(int row, int other)
{
    m_sequenceTab->swapRows(row, other);
}
void MainWindow::tabSequence_handleSpeedEdit(unsigned char finger)
{
    m_sequenceTab->handleSpeedEdit(finger);
}
void MainWindow::tabSequence_handleSliderMoved(unsigned char finger, int value)
{
    m_sequenceTab->handleSliderMoved(finger, value);
}
void MainWindow::tabSequence_handleSliderReleased(unsigned char finger)
{
    m_sequenceTab->handleSliderReleased(finger);
}
bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress &&
        m_sequenceTab->keyPressed(static_cast<const QKeyEvent&>(*event)))
        return true;
    return QMainWindow::eventFilter(watched, event);
}
void MainWindow::updatePlaying(bool isPlaying, int sequenceIndex, qint64, QString errMsg)
{
    m_sequenceTab->updatePlaying(isPlaying, sequenceIndex, errMsg);
}
void MainWindow::on_pushButton_SeqInsert_clicked()
{
    m_sequenceTab->insertClicked();
}
void MainWindow::on_pushButton_SeqDelete_clicked()
{
    m_sequenceTab->deleteClicked();
}
void MainWindow::on_pushButton_SeqUp_clicked()
{
    m_sequenceTab->moveRowClicked(-1);
}
void MainWindow::on_pushButton_SeqDown_clicked()
{
    m_sequenceTab->moveRowClicked(1);
}
void MainWindow::on_pushButton_SeqRun_clicked()
{
    m_sequenceTab->runClicked();
}
void MainWindow::on_pushButton_SeqStop_clicked()
{
    m_sequenceTab->stopClicked();
}
void MainWindow::on_pushButton_SeqLoad_clicked()
{
    m_sequenceTab->loadClicked();
}
void MainWindow::on_pushButton_SeqSave_clicked()
{
    m_sequenceTab->saveClicked();
}
void MainWindow::on_tableWidget_Seq_cellDoubleClicked(int row, int)
{
    m_sequenceTab->rowDoubleClicked(row);
}
void MainWindow::on_tableWidget_Seq_currentCellChanged(int row, int, int, int)
{
    m_sequenceTab->currentRowChanged(row);
}
void MainWindow::on_lineEdit_SeqDelay_editingFinished()
{
    m_sequenceTab->delayEdited();
}
void MainWindow::on_comboBox_SeqPosOrAngle_currentIndexChanged(int)
{
    m_sequenceTab->modeChanged();
}
VANTO_DEFINE_FINGER_SLOTS(lineEdit_SeqSpeed, editingFinished, tabSequence_handleSpeedEdit)
VANTO_DEFINE_FINGER_VALUE_SLOTS(verticalSlider_SeqPos, sliderMoved, tabSequence_handleSliderMoved)
VANTO_DEFINE_FINGER_SLOTS(verticalSlider_SeqPos, sliderReleased, tabSequence_handleSliderReleased)
