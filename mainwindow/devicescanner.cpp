#include "devicescanner.h"

#include "deviceconnector.h"
#include "portproblem.h"
#include "program.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"

#include <QMessageBox>
#include <QProgressBar>

namespace
{
/// The second click of a double click on Stop is no wish for a new scan.
class DoubleClickGuard : public QObject
{
public:
    explicit DoubleClickGuard(QPushButton* button)
        : QObject(button), m_button(button), m_idleCaption(button->text())
    {
        button->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == QEvent::MouseButtonDblClick && m_button->text() == m_idleCaption;
    }

private:
    QPushButton* m_button;
    QString m_idleCaption;
};
} // namespace

DeviceScanner::DeviceScanner(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                             StatusReporter* reporter, DeviceConnector* connector)
    : m_ui(ui),
      m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_connector(connector),
      m_scan(reporter->namingTimeouts()),
      m_progress(new QProgressBar(window)),
      m_idleCaption(ui->pushButton_ScanDevices->text())
{
    new DoubleClickGuard(ui->pushButton_ScanDevices);
    m_progress->setObjectName(QStringLiteral("progressBar_Scan"));
    m_progress->setAccessibleName(tr("Scan progress"));
    m_progress->setRange(HandScan::FirstNode, HandScan::LastNode);
    m_progress->setTextVisible(false);
    // Else the bar would be as high as the theme makes it, after the first paint.
    m_progress->setMaximumHeight(m_progress->fontMetrics().height());
    m_progress->setMaximumWidth(20 * m_progress->fontMetrics().averageCharWidth());
    m_ui->statusBar->addPermanentWidget(m_progress);
    m_progress->hide();
    QObject::connect(&m_scan, &HandScan::sig_nodeBegins, window, [this](int node) {
        m_progress->setValue(node);
        m_reporter->showMessage(
            tr("Trying node '0x%1'...").arg(StatusReporter::hex(static_cast<unsigned>(node))));
    });
    QObject::connect(&m_scan, &HandScan::sig_found, window,
                     [this](const DeviceEntry& entry) { list(entry); });
    QObject::connect(&m_scan, &HandScan::sig_pause, session,
                     [session] { session->openWaitingDialogs(); });
}

void DeviceScanner::scanClicked()
{
    if (m_ui->pushButton_ScanDevices->text() != m_idleCaption) {
        m_scan.stop();
        return;
    }
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::Scan, [this] { scan(); });
}

void DeviceScanner::scan()
{
    using Outcome = HandScan::Outcome;
    setScanning(true);
    const Outcome outcome = m_scan.run(m_connector->currentPortName(), m_session->token());
    if (outcome == Outcome::PortNotOpened)
        showPortNotOpened();
    setScanning(false);
    if (outcome == Outcome::AllTried || outcome == Outcome::Stopped)
        m_connector->openCurrentDevice();
}

void DeviceScanner::showPortNotOpened()
{
    const QString port = m_connector->currentPortName();
    const QString text =
        tr("Open port '%1' failed, protocol=%2, baudrate=%3")
            .arg(port, QString::number(m_scan.failedProtocol()), QString::number(BaudRate));
    QMessageBox box(QMessageBox::Critical, Program::title(), text, QMessageBox::Ok, m_window);
    box.setInformativeText(portProblem(port));
    box.exec();
}

void DeviceScanner::setScanning(bool scanning)
{
    const std::initializer_list<QWidget*> topRow{m_ui->pushButton_RefreshPorts,
                                                 m_ui->comboBox_Ports, m_ui->comboBox_Devices};
    for (QWidget* widget : topRow)
        widget->setEnabled(!scanning);
    m_ui->pushButton_ScanDevices->setText(scanning ? tr("Stop") : m_idleCaption);
    if (scanning)
        m_connector->forgetDevices();
    m_ui->tabWidget->setEnabled(!scanning);
    m_ui->action_Force_Update->setEnabled(!scanning);
    m_progress->setValue(HandScan::FirstNode);
    m_progress->setVisible(scanning);
}

void DeviceScanner::list(const DeviceEntry& entry)
{
    m_ui->comboBox_Devices->addItem(entry.text(), int{entry.node});
    m_reporter->showMessage(tr("node '0x%1' found, firmware version: %2.%3.%4")
                                .arg(StatusReporter::hex(entry.node))
                                .arg(entry.firmwareMajor)
                                .arg(entry.firmwareMinor)
                                .arg(entry.firmwareRevision));
}
