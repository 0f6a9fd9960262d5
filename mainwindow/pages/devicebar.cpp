#include "devicebar.h"

#include "calltext.h"
#include "connectionview.h"
#include "devicepage.h"
#include "equalwidthgroup.h"
#include "haltcontrol.h"
#include "lasthand.h"
#include "portbox.h"
#include "program.h"
#include "reconnection.h"
#include "scanrunner.h"
#include "statusreporter.h"
#include "ui_devicebar.h"

#include <QLabel>
#include <QMessageBox>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTimer>

namespace vanto
{

namespace
{
/// A double click on Scan or Stop counts as one click: it starts a scan or ends it, not both.
class DoubleClickFilter : public QObject
{
public:
    explicit DoubleClickFilter(QPushButton* button) : QObject(button)
    {
        button->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        return event->type() == QEvent::MouseButtonDblClick;
    }
};
} // namespace

DeviceBar::DeviceBar(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::DeviceBar>())
{
    ui->setupUi(this);
    new EqualWidthGroup({ui->pushButton_RefreshPorts, ui->pushButton_ScanDevices});
    new DoubleClickFilter(ui->pushButton_ScanDevices);
    connect(ui->comboBox_Devices, &QComboBox::currentIndexChanged, this,
            &DeviceBar::sig_currentDeviceChanged);
}

DeviceBar::~DeviceBar() = default;

void DeviceBar::setUp(DeviceSession* session, StatusReporter* reporter, QTabWidget* pages,
                      const QList<QAction*>& lockedActions)
{
    m_session = session;
    m_reporter = reporter;
    m_tabs = pages;
    m_lockedActions = lockedActions;
    for (int i = 0; i < pages->count(); ++i) {
        m_pages.append(qobject_cast<DevicePage*>(pages->widget(i)));
        Q_ASSERT(m_pages.constLast());
    }
    const LastHand last = LastHand::load();
    m_suggestedNode = last.range();
    m_portBox = new PortBox(ui->comboBox_Ports, last.port);
    connect(m_portBox, &PortBox::sig_listed, this, [this](const QList<PortEntry>& ports) {
        m_session->runWhenIdle(DeviceSession::Kind::RefreshPorts, [this, ports] { list(ports); });
    });
    m_scan = new ScanRunner(ui->pushButton_ScanDevices, session, reporter);
    connect(m_scan, &ScanRunner::sig_found, this, &DeviceBar::addDevice);
    auto* nextStep = new QLabel(pages);
    nextStep->setObjectName(QStringLiteral("label_NextStep"));
    nextStep->setContentsMargins(0, 0, 0, nextStep->fontMetrics().height() / 2);
    pages->setCornerWidget(nextStep);
    m_connection =
        new ConnectionView(ui->label_ConnectionIcon, ui->label_ConnectionState, nextStep, session);
    m_connection->reportTo(reporter);
    connect(this, &DeviceBar::sig_currentDeviceChanged, m_connection, &ConnectionView::update);
    connect(session, &DeviceSession::sig_portLost, this, &DeviceBar::showPortLost);
    connect(session, &DeviceSession::sig_answersAgain, this, [this] {
        if (!m_session->identity().firmware) // it was silent from the start
            m_session->runWhenIdle(DeviceSession::Kind::ChangeDevice,
                                   [this] { openCurrentDevice(); });
    });
    connect(session, &DeviceSession::sig_otherHand, this, &DeviceBar::deselectDevice);
    auto* reconnection = new Reconnection(session, this);
    m_reconnection = reconnection;
    connect(reconnection, &Reconnection::sig_reconnected, this, &DeviceBar::showReconnected);
    connect(reconnection, &Reconnection::sig_portBack, this, [this](const PortEntry& port) {
        m_portBox->replaceCurrent(port);
        openCurrentDevice();
    });
    connect(reconnection, &Reconnection::sig_otherHand, this, &DeviceBar::deselectDevice);
    connect(reconnection, &Reconnection::sig_otherHand, m_connection,
            &ConnectionView::reportOtherHand);
    connect(reconnection, &Reconnection::sig_waitingForHand, m_connection,
            &ConnectionView::reportWaiting);
    connect(reconnection, &Reconnection::sig_notOpened, m_connection,
            &ConnectionView::reportNotOpened);
    createHaltControl();
    resetDevices();
}

void DeviceBar::createHaltControl()
{
    const auto listedNodes = [this] {
        std::vector<std::uint8_t> nodes;
        for (int i = 0; i < ui->comboBox_Devices->count(); ++i) {
            const auto node = static_cast<std::uint8_t>(ui->comboBox_Devices->itemData(i).toInt());
            DeviceAddress address;
            parseDeviceEntry(ui->comboBox_Devices->itemText(i), address);
            if (node != AnyNode && address.type == PROTOCOL_TYPE_SERIALCTRL)
                nodes.push_back(node);
        }
        return nodes;
    };
    m_haltControl = new HaltControl(ui->pushButton_Halt, m_session, m_reporter, listedNodes);
    m_connection->setHalt(&m_haltControl->halt());
    connect(&m_haltControl->halt(), &Halt::sig_halted, this, &DeviceBar::showHalted);
}

/// The halt may have cut short what the pages were reading.
void DeviceBar::showHalted()
{
    const auto target = m_session->target();
    if (target && m_openedPartly)
        m_session->runWhenIdle(DeviceSession::Kind::ChangeDevice, [this] { openCurrentDevice(); });
    for (DevicePage* page : m_pages)
        if (target && target->isCurrent())
            page->resumeAfterHalt(page == m_tabs->currentWidget());
    if (m_haltControl->halt().state() == Halt::State::Halted)
        m_reporter->showMessage(HaltControl::stateText(Halt::State::Halted));
}

void DeviceBar::listPortsInBackground()
{
    m_portBox->listInBackground();
}

bool DeviceBar::hasPort() const
{
    return m_portBox->hasPort();
}

QString DeviceBar::portName() const
{
    return m_portBox->port().name;
}

HandScan::Range DeviceBar::scanRange() const
{
    return m_scan->range();
}

void DeviceBar::setScanRange(const HandScan::Range& range)
{
    m_scan->setRange(range);
}

std::optional<std::uint8_t> DeviceBar::currentNode() const
{
    if (ui->comboBox_Devices->currentIndex() < 0)
        return {};
    return static_cast<std::uint8_t>(ui->comboBox_Devices->currentData().toInt());
}

void DeviceBar::on_pushButton_RefreshPorts_clicked()
{
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::RefreshPorts, [this] { list(availablePorts()); });
}

void DeviceBar::list(const QList<PortEntry>& ports)
{
    m_portBox->list(ports);
    resetDevices();
}

void DeviceBar::on_comboBox_Ports_currentIndexChanged(int)
{
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::ChangePort, [this] { resetDevices(); });
}

void DeviceBar::on_comboBox_Devices_currentIndexChanged(int index)
{
    // A scan disables the list while filling it; entries that it adds open nothing.
    if (!ui->comboBox_Devices->isEnabled() || index < 0)
        return;
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::ChangeDevice, [this] { openCurrentDevice(); });
    // A choice that changes the index is followed by activated().
    m_indexChanged = true;
    QTimer::singleShot(0, this, [this] { m_indexChanged = false; });
}

/// Choosing the current entry again opens a closed port.
void DeviceBar::on_comboBox_Devices_activated(int)
{
    if (!m_indexChanged && m_session->isPortClosed())
        m_session->runWhenIdle(DeviceSession::Kind::ChangeDevice, [this] {
            if (m_session->isPortClosed() && m_session->reopenPort())
                openCurrentDevice();
        });
}

/// What the pages show stays readable.
void DeviceBar::showPortLost()
{
    // Otherwise the focus would move on to the list of ports, where a key closes the hand.
    m_focusBeforeLoss = window()->focusWidget();
    if (m_tabs->currentWidget()->isAncestorOf(m_focusBeforeLoss))
        m_tabs->setFocus();
    disablePages();
}

void DeviceBar::disablePages()
{
    for (DevicePage* page : m_pages)
        page->enableWidgets(false);
}

/// Nothing is open any more; choosing the entry opens it again.
void DeviceBar::deselectDevice()
{
    disablePages();
    {
        const QSignalBlocker blocker(ui->comboBox_Devices);
        ui->comboBox_Devices->setCurrentIndex(-1);
    }
    emit sig_currentDeviceChanged();
}

void DeviceBar::showReconnected(const PortEntry& port)
{
    m_portBox->replaceCurrent(port);
    const auto token = m_session->token();
    reloadPages();
    if (!token.isCurrent())
        return;
    if (m_focusBeforeLoss && m_tabs->hasFocus())
        m_focusBeforeLoss->setFocus();
    saveLastHand();
    m_connection->reportReconnected();
}

void DeviceBar::reloadPages()
{
    const auto token = m_session->token();
    for (DevicePage* page : m_pages) {
        page->reloadKeepingEdits();
        if (!token.isCurrent())
            return;
    }
    followCurrentPage();
}

void DeviceBar::reconnectNow()
{
    m_reconnection->tryNow();
}

void DeviceBar::closeCurrentDevice()
{
    m_session->closeIfConnected();
    clearPages();
}

void DeviceBar::clearPages()
{
    for (DevicePage* page : m_pages)
        page->clear();
    disablePages();
}

void DeviceBar::resetDevices()
{
    closeCurrentDevice();
    clearDevices();
    showForceSensing(false);
}

void DeviceBar::clearDevices()
{
    ui->comboBox_Devices->clear();
}

void DeviceBar::openCurrentDevice()
{
    if (!hasCurrentDevice())
        return;
    closeCurrentDevice();
    const auto adapter = adapterOfCurrentEntry();
    if (!adapter) {
        showForceSensing(false);
        return;
    }
    const auto target = m_session->open(adapter, m_portBox->updateCurrent());
    m_openedPartly = !target;
    if (!target)
        return;
    if (!m_session->isPortClosed())
        saveLastHand();
    showForceSensing(m_session->hasForceSensing());
    for (DevicePage* page : m_pages) {
        page->reload();
        if (!target->isCurrent())
            return;
    }
    followCurrentPage();
    if (target->isCurrent())
        emit sig_pagesLoaded();
}

void DeviceBar::saveLastHand() const
{
    if (const auto hand = m_session->target())
        LastHand{portName(), hand->node, hand->adapter->protocolType()}.save();
}

std::shared_ptr<VantoProtocol> DeviceBar::adapterOfCurrentEntry()
{
    DeviceAddress address;
    switch (parseDeviceEntry(ui->comboBox_Devices->currentText(), address)) {
    case EntryError::UnknownProtocolType:
        showCritical(tr("Unknown device protocol type"));
        return {};
    case EntryError::UnknownProtocolVersion:
        showCritical(tr("Unknown device protocol version"));
        return {};
    case EntryError::UnknownDeviceName:
        showCritical(tr("Unknown device name"));
        return {};
    case EntryError::None:
        break;
    }
    auto adapter = VantoProtocol::getProtocolInstance(address.type, address.major, address.minor);
    if (!adapter)
        showCritical(tr("Unsupported protocol version"));
    return adapter;
}

void DeviceBar::showForceSensing(bool present)
{
    if (!present)
        m_session->clearForceSensing();
    for (DevicePage* page : m_pages)
        page->setForceSensing(present);
    // Hiding the current page would make its neighbour current.
    if (!present && qobject_cast<DevicePage*>(m_tabs->currentWidget())->needsForceSensing())
        m_tabs->setCurrentIndex(0);
    for (int i = 0; i < m_pages.size(); ++i)
        if (m_pages[i]->needsForceSensing())
            m_tabs->setTabVisible(i, present);
}

void DeviceBar::followCurrentPage()
{
    for (DevicePage* page : m_pages)
        page->follow(page == m_tabs->currentWidget());
}

ControlLock DeviceBar::lockWindow(Usable usable, QList<QAction*> actions) const
{
    QList<QWidget*> widgets{m_tabs};
    if (usable != Usable::TopRow)
        widgets << ui->pushButton_RefreshPorts << ui->comboBox_Ports << ui->comboBox_Devices;
    if (usable == Usable::Nothing)
        widgets << ui->pushButton_ScanDevices;
    actions.append(m_lockedActions);
    return ControlLock(window(), widgets, actions);
}

void DeviceBar::on_pushButton_ScanDevices_clicked()
{
    if (m_scan->isRunning()) {
        m_scan->stop();
        return;
    }
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::Scan, [this] { scan(); });
}

void DeviceBar::scan()
{
    using Outcome = HandScan::Outcome;
    resetDevices();
    const Outcome outcome = runScan(m_scan->range());
    if (outcome == Outcome::Completed || outcome == Outcome::Stopped)
        openCurrentDevice();
    else
        deselectDevice(); // it can be chosen then
}

HandScan::Outcome DeviceBar::runScan(const HandScan::Range& range)
{
    const ControlLock lock = lockWindow(Usable::Stop);
    const HandScan::Outcome outcome = m_scan->run(portName(), range);
    if (outcome == HandScan::Outcome::PortLost)
        m_connection->reportPortLost();
    return outcome;
}

void DeviceBar::openNode(const HandScan::Range& node)
{
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::Scan, [this, node] { tryNode(node); });
}

void DeviceBar::tryNode(const HandScan::Range& node)
{
    closeCurrentDevice();
    deselectDevice();
    QString found;
    const auto connection =
        connect(m_scan, &ScanRunner::sig_found, this, [&found](const DeviceEntry& entry) {
            if (found.isEmpty())
                found = entry.text();
        });
    const HandScan::Outcome outcome = runScan(node);
    disconnect(connection);
    if (outcome != HandScan::Outcome::Completed && outcome != HandScan::Outcome::Stopped) {
        deselectDevice(); // it can be chosen then
        return;
    }
    if (found.isEmpty()) {
        m_reporter->showError(CallText::noHand(static_cast<unsigned>(node.first)));
        return;
    }
    {
        const QSignalBlocker blocker(ui->comboBox_Devices);
        ui->comboBox_Devices->setCurrentIndex(ui->comboBox_Devices->findText(found));
    }
    emit sig_currentDeviceChanged();
    openCurrentDevice();
}

void DeviceBar::addDevice(const DeviceEntry& entry)
{
    // The same hand may have another firmware than when it was listed.
    auto* list = ui->comboBox_Devices;
    int index = 0;
    while (index < list->count() && (list->itemData(index) != int{entry.node} ||
                                     !list->itemText(index).contains(entry.protocolName)))
        ++index;
    if (index == list->count())
        list->addItem(entry.text(), int{entry.node});
    list->setItemText(index, entry.text());
    if (entry.isAnyNode())
        list->setItemData(index, ConnectionView::anyNodeHint(), Qt::ToolTipRole);
    m_reporter->showMessage(tr("node '0x%1' found, firmware version: %2.%3.%4")
                                .arg(StatusReporter::hex(entry.node))
                                .arg(entry.firmwareMajor)
                                .arg(entry.firmwareMinor)
                                .arg(entry.firmwareRevision));
}

void DeviceBar::showCritical(const QString& text)
{
    QMessageBox::critical(window(), Program::title(), text);
}

} // namespace vanto
