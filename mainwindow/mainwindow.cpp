#include "mainwindow.h"

#include "basictab.h"
#include "deviceconnector.h"
#include "devicescanner.h"
#include "devicesession.h"
#include "pagetimers.h"
#include "portlist.h"
#include "program.h"
#include "statusreporter.h"
#include "theme.h"
#include "ui_mainwindow.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QMessageBox>

#include <future>

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::MainWindow>())
{
    // The system takes about as long to list its ports as Qt to build the form.
    auto ports = std::async(std::launch::async, availablePorts);
    ui->setupUi(this);
    // The one long header gets its room, the other columns share the rest.
    auto* columns = ui->tableWidget_Seq->horizontalHeader();
    columns->setSectionResizeMode(QHeaderView::Stretch);
    columns->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    setWindowTitle(Program::title() + QStringLiteral(" - ") + QLatin1String(Program::Version));
    setWindowIcon(QIcon(QStringLiteral("://images/icon.ico")));

    m_session = std::make_unique<DeviceSession>([devices = ui->comboBox_Devices] {
        return devices->currentIndex() < 0
                   ? std::optional<std::uint8_t>()
                   : static_cast<std::uint8_t>(devices->currentData().toInt());
    });
    m_reporter = new StatusReporter(ui->statusBar, m_session.get());
    m_timers = new PageTimers(ui->tabWidget, m_session.get());
    m_basicTab = std::make_unique<BasicTab>(ui.get(), this, m_session.get(), m_reporter);
    m_connector = std::make_unique<DeviceConnector>(ui.get(), this, m_session.get(), m_timers,
                                                    std::vector<TabRoom*>{m_basicTab.get()});
    m_scanner = std::make_unique<DeviceScanner>(ui.get(), this, m_session.get(), m_reporter,
                                                m_connector.get());
    m_connector->listPorts(ports.get());
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
    event->accept();
    on_action_Exit_triggered();
}

void MainWindow::on_action_Exit_triggered()
{
    m_session->shutDown();
    QCoreApplication::exit(0);
}

void MainWindow::on_action_Theme_triggered()
{
    m_session->whenQuiet(DeviceSession::Change::Theme, [this] { Theme::choose(this); });
}

void MainWindow::on_action_About_triggered()
{
    m_session->whenQuiet(DeviceSession::Change::About, [this] { showAbout(); });
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
