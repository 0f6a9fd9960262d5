#include "devicescanner.h"

#include "conversation.h"
#include "deviceconnector.h"
#include "deviceentry.h"
#include "portproblem.h"
#include "program.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"

#include <QMessageBox>
#include <QProgressBar>

namespace
{
constexpr int FirstNode = 1;
constexpr int LastNode = 255;

/// The protocols to try on every node, in this order.
QList<std::shared_ptr<VantoProtocol>> protocolsToTry()
{
    QList<std::shared_ptr<VantoProtocol>> protocols{
        VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_MODBUS_RTU, ModbusMajorVersion, 0),
        VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, SerialCtrlMajorVersion, 0)};
    protocols.removeAll(nullptr);
    return protocols;
}

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
      m_progress(new QProgressBar(window)),
      m_idleCaption(ui->pushButton_ScanDevices->text())
{
    new DoubleClickGuard(ui->pushButton_ScanDevices);
    m_progress->setObjectName(QStringLiteral("progressBar_Scan"));
    m_progress->setAccessibleName(tr("Scan progress"));
    m_progress->setRange(FirstNode, LastNode);
    m_progress->setTextVisible(false);
    // Else the bar would be as high as the theme makes it, after the first paint.
    m_progress->setMaximumHeight(m_progress->fontMetrics().height());
    m_progress->setMaximumWidth(20 * m_progress->fontMetrics().averageCharWidth());
    m_ui->statusBar->addPermanentWidget(m_progress);
    m_progress->hide();
}

void DeviceScanner::scanClicked()
{
    if (m_ui->pushButton_ScanDevices->text() != m_idleCaption) {
        m_stop = true;
        return;
    }
    m_session->stopAtOnce();
    m_session->whenQuiet(DeviceSession::Change::Scan, [this] { scan(); });
}

void DeviceScanner::scan()
{
    setScanning(true);
    const Outcome outcome = tryNodes(m_connector->currentPortName());
    if (outcome == Outcome::PortNotOpened)
        tellThatPortIsClosed();
    setScanning(false);
    if (outcome == Outcome::AllTried || outcome == Outcome::Stopped)
        m_connector->openCurrentDevice();
}

void DeviceScanner::tellThatPortIsClosed()
{
    QMessageBox box(QMessageBox::Critical, Program::title(), m_failure, QMessageBox::Ok, m_window);
    box.setInformativeText(portProblem(m_connector->currentPortName()));
    box.exec();
}

void DeviceScanner::setScanning(bool scanning)
{
    const std::initializer_list<QWidget*> topRow{m_ui->pushButton_RefreshPorts,
                                                 m_ui->comboBox_Ports, m_ui->comboBox_Devices};
    for (QWidget* widget : topRow)
        widget->setEnabled(!scanning);
    m_ui->pushButton_ScanDevices->setText(scanning ? tr("Stop") : m_idleCaption);
    if (scanning) {
        m_connector->forgetDevices();
        m_stop = false;
    }
    m_ui->tabWidget->setEnabled(!scanning);
    m_ui->action_Force_Update->setEnabled(!scanning);
    m_progress->setValue(FirstNode);
    m_progress->setVisible(scanning);
}

DeviceScanner::Outcome DeviceScanner::tryNodes(const QString& port)
{
    const auto protocols = protocolsToTry();
    const auto epoch = m_session->epoch();
    for (int node = FirstNode; node <= LastNode; ++node) {
        if (m_stop)
            return Outcome::Stopped;
        m_progress->setValue(node);
        m_reporter->showMessage(
            tr("Trying node '0x%1'...").arg(StatusReporter::hex(static_cast<unsigned>(node))));
        for (const auto& protocol : protocols) {
            if (!tryNode(port, {protocol, static_cast<std::uint8_t>(node), epoch}))
                return Outcome::PortNotOpened;
            m_session->openWaitingDialogs();
            if (epoch != m_session->epoch())
                return Outcome::Superseded;
        }
    }
    return Outcome::AllTried;
}

bool DeviceScanner::tryNode(const QString& port, const DeviceSession::Target& candidate)
{
    const Conversation conversation;
    if (!candidate->connect(port.toUtf8().constData(), BaudRate)) {
        m_failure =
            tr("Open port '%1' failed, protocol=%2, baudrate=%3")
                .arg(port, QString::number(candidate->protocolType()), QString::number(BaudRate));
        return false;
    }
    listIfAnswering(candidate);
    candidate->disconnect();
    return true;
}

void DeviceScanner::listIfAnswering(const DeviceSession::Target& candidate)
{
    DeviceEntry entry;
    entry.node = candidate.node;
    entry.protocolName = QLatin1String(candidate->protocolName());
    if (!m_reporter->succeeded(candidate, "getFirmwareVersion",
                               candidate->getFirmwareVersion(candidate.node, &entry.firmwareMajor,
                                                             &entry.firmwareMinor,
                                                             &entry.firmwareRevision)))
        return;
    if (!m_reporter->succeeded(candidate, "getProtocolVersion",
                               candidate->getProtocolVersion(candidate.node, &entry.protocolMajor,
                                                             &entry.protocolMinor)))
        return;
    m_ui->comboBox_Devices->addItem(entry.text(), int{entry.node});
    m_reporter->showMessage(tr("node '0x%1' found, firmware version: %2.%3.%4")
                                .arg(StatusReporter::hex(entry.node))
                                .arg(entry.firmwareMajor)
                                .arg(entry.firmwareMinor)
                                .arg(entry.firmwareRevision));
}
