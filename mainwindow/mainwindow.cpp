#include "mainwindow.h"

#include "calibrationprocedure.h"
#include "firmwareupdater.h"
#include "haltcontrol.h"
#include "messagelist.h"
#include "monitordock.h"
#include "nodedialogs.h"
#include "parameteractions.h"
#include "parameterbackups.h"
#include "program.h"
#include "settingsfile.h"
#include "statefile.h"
#include "statusreporter.h"
#include "theme.h"
#include "ui_mainwindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QSettings>
#include <QTextStream>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr QLatin1String DocksKey("window/docks");
}

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent),
      ui(std::make_unique<Ui::MainWindow>()),
      m_showingMonitor([this] { showMonitor(); }, this)
{
    ui->setupUi(this);
    setWindowTitle(Program::title() + QStringLiteral(" - ") + QLatin1String(Program::Version));
    setWindowIcon(QIcon(QStringLiteral("://images/icon.ico")));

    m_session =
        std::make_unique<DeviceSession>([bar = ui->deviceBar] { return bar->currentNode(); });
    m_reporter = new StatusReporter(ui->statusBar);
    m_reporter->addContextAction(ui->action_Messages);
    setUpPages();
    setUpParameters();
    m_calibration = std::make_unique<CalibrationProcedure>(this, m_session.get(), m_reporter,
                                                           ui->deviceBar, m_backups.get());
    m_updater = std::make_unique<FirmwareUpdater>(
        this, m_session.get(), m_reporter, ui->deviceBar, m_backups.get(),
        [page = ui->tab_Basic] { return page->hardware(); },
        [this](int percent) { emit sig_updateProgress(percent); });
    m_updater->disableDuringDownload({ui->action_Theme, ui->action_About});
    connect(this, &MainWindow::sig_updateProgress, this, &MainWindow::on_updateProgress);
    connect(&ui->deviceBar->haltControl()->halt(), &Halt::sig_stateChanged, this,
            &MainWindow::exitAfterHalt);
    ui->deviceBar->listPortsInBackground();
}

void MainWindow::setUpPages()
{
    ui->tab_Basic->setUp(m_session.get(), m_reporter, ui->deviceBar);
    ui->tab_Setting->setUp(m_session.get(), m_reporter);
    ui->tab_Run->setUp(m_session.get(), m_reporter);
    ui->tab_Force->setUp(m_session.get(), m_reporter);
    ui->tab_Sequence->setUp(m_session.get(), m_reporter);
    ui->tab_Sequence->addMenus(ui->menuBar, ui->menu_View->menuAction(), ui->menu_File,
                               ui->action_Exit);
    ui->deviceBar->setUp(m_session.get(), m_reporter, ui->tabWidget,
                         {ui->action_Force_Update, ui->action_Open_Node, ui->action_Scan_Range});
}

void MainWindow::setUpParameters()
{
    m_backups = std::make_unique<ParameterBackups>(
        m_session.get(), m_reporter, ui->deviceBar, ui->noticeBar,
        [page = ui->tab_Basic] { return page->isRead(); });
    m_parameters = std::make_unique<ParameterActions>(
        this, m_session.get(), m_reporter, ui->deviceBar, ui->tabWidget,
        ParameterActions::Actions{ui->action_Save_Parameters, ui->action_Restore_Parameters,
                                  ui->action_Hand_Information});
    connect(ui->action_Restore_Parameters, &QAction::enabledChanged, ui->noticeBar,
            &NoticeBar::setActionEnabled);
    ui->noticeBar->setActionEnabled(ui->action_Restore_Parameters->isEnabled());
    connect(m_parameters.get(), &ParameterActions::sig_givenFileCompared, ui->noticeBar,
            &QWidget::hide);
    m_parameters->setPlaying([page = ui->tab_Sequence] { return page->isPlaying(); });
    connect(ui->tab_Sequence, &SequencePage::sig_playingChanged, m_parameters.get(),
            &ParameterActions::update);
    connect(m_backups.get(), &ParameterBackups::sig_compareRequested, m_parameters.get(),
            &ParameterActions::compareWith);
}

void MainWindow::on_action_Monitor_triggered()
{
    if (m_monitor && !ui->action_Monitor->isChecked())
        m_monitor->hide(); // does not take long
    else
        m_showingMonitor.run();
}

/// Created when it is needed first, as it would delay the start. It is hidden at each start,
/// because it sends requests to the hand.
void MainWindow::showMonitor()
{
    const bool show = ui->action_Monitor->isChecked();
    if (!m_monitor) {
        m_monitor = new MonitorDock(
            m_session.get(), m_reporter, &m_currentLimits,
            [tabs = ui->tabWidget] { return !tabs->isEnabled(); },
            [page = ui->tab_Sequence] { return page->isPlaying(); }, this);
        addDockWidget(Qt::RightDockWidgetArea, m_monitor);
        if (canBeSettingsFile(stateFilePath()))
            restoreState(
                QSettings(stateFilePath(), QSettings::IniFormat).value(DocksKey).toByteArray());
        connect(m_monitor->toggleViewAction(), &QAction::toggled, ui->action_Monitor,
                &QAction::setChecked);
    }
    m_monitor->setVisible(show);
}

MainWindow::~MainWindow()
{
    m_session->shutDown();
    if (m_monitor && canBeSettingsFile(stateFilePath()))
        QSettings(stateFilePath(), QSettings::IniFormat).setValue(DocksKey, saveState());
    delete m_monitor; // refers to the session
    // Widgets emit signals during destruction, when their page is already partly destroyed.
    QList<QObject*> receivers{this, ui->deviceBar, m_parameters.get(), m_backups.get()};
    for (int i = 0; i < ui->tabWidget->count(); ++i)
        receivers.append(ui->tabWidget->widget(i));
    for (const QObject* child : findChildren<QObject*>())
        for (const QObject* receiver : receivers)
            child->disconnect(receiver);
}

void MainWindow::closeDevice()
{
    m_session->close();
}

void MainWindow::closeDeviceIfOpen()
{
    m_session->closeIfConnected();
}

void MainWindow::showErrorOnStatusBar(const QString& text, const QColor& color)
{
    m_reporter->showError(text, color);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    on_action_Exit_triggered();
    // Without a window the program would end before the halt.
    event->setAccepted(m_updater->canClose() && !ui->deviceBar->haltControl()->halt().isPending());
}

void MainWindow::on_action_Save_Parameters_triggered()
{
    m_parameters->save();
}

void MainWindow::on_action_Restore_Parameters_triggered()
{
    m_parameters->compare();
}

void MainWindow::on_action_Hand_Information_triggered()
{
    m_parameters->showInformation();
}

void MainWindow::on_action_Exit_triggered()
{
    if (!m_updater->canClose())
        return;
    m_session->shutDown();
    m_exits = true;
    exitAfterHalt();
}

/// A halt that has been pressed before still reaches the hand.
void MainWindow::exitAfterHalt()
{
    const Halt& halt = ui->deviceBar->haltControl()->halt();
    if (!m_exits || halt.isPending())
        return;
    m_exits = false;
    // The window disappears before the user can read it.
    if (halt.state() == Halt::State::NotConfirmed || halt.state() == Halt::State::SentToAll)
        QTextStream(stderr) << Halt::stateText(halt.state()) << Qt::endl;
    QCoreApplication::exit(0);
}

void MainWindow::on_action_Messages_triggered()
{
    MessageList::showLog(m_reporter->log(), this);
}

void MainWindow::on_action_Force_Update_triggered()
{
    on_pushButton_BasicUpdateFirmware_clicked();
}

void MainWindow::on_action_Theme_triggered()
{
    m_session->runWhenIdle(DeviceSession::Kind::Theme, [this] { Theme::choose(this); });
}

void MainWindow::on_action_Open_Node_triggered()
{
    m_session->stopMotion(); // the dialog would cover Stop
    m_session->runWhenIdle(DeviceSession::Kind::OpenNode, [this] {
        if (const auto node = NodeDialogs::openNode(this, ui->deviceBar->suggestedNode()))
            ui->deviceBar->openNode(*node);
    });
}

void MainWindow::on_action_Scan_Range_triggered()
{
    m_session->runWhenIdle(DeviceSession::Kind::ScanRange, [this] {
        if (const auto range = NodeDialogs::scanRange(this, ui->deviceBar->scanRange()))
            ui->deviceBar->setScanRange(*range);
    });
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

void MainWindow::on_tabWidget_currentChanged(int)
{
    ui->deviceBar->followCurrentPage();
    if (ui->tabWidget->currentWidget() == ui->tab_Sequence)
        ui->tab_Sequence->focusTable();
}

void MainWindow::on_pushButton_BasicUpdateFirmware_clicked()
{
    m_updater->requestUpdate();
}

void MainWindow::on_updateProgress(int percent)
{
    m_updater->showProgress(percent);
}

void MainWindow::on_pushButton_BasicRecalibrate_clicked()
{
    ui->tab_Basic->requestRecalibration(
        [this](const HandTarget& target) { m_calibration->run(target); });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress &&
        ui->tab_Sequence->handleKeyPress(static_cast<const QKeyEvent&>(*event)))
        return true;
    return QMainWindow::eventFilter(watched, event);
}

} // namespace vanto
