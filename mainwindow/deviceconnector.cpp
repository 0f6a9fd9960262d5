#include "deviceconnector.h"

#include "deviceentry.h"
#include "pagetimers.h"
#include "program.h"
#include "tabroom.h"
#include "ui_mainwindow.h"

#include <QMessageBox>
#include <QSignalBlocker>

DeviceConnector::DeviceConnector(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                                 PageTimers* timers, std::vector<TabRoom*> tabs)
    : m_ui(ui), m_window(window), m_session(session), m_timers(timers), m_tabs(std::move(tabs))
{
}

void DeviceConnector::refreshClicked()
{
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::RefreshPorts,
                           [this] { listPorts(availablePorts()); });
}

void DeviceConnector::listPortsAtStart(const QList<PortEntry>& ports)
{
    if (m_portsListed)
        return;
    m_session->runWhenIdle(DeviceSession::Kind::RefreshPorts, [this, ports] { listPorts(ports); });
}

void DeviceConnector::listPorts(const QList<PortEntry>& ports)
{
    m_portsListed = true;
    const QSignalBlocker noPortChange(m_ui->comboBox_Ports);
    m_ui->comboBox_Ports->clear();
    forgetDevices();
    for (const PortEntry& port : ports) {
        m_ui->comboBox_Ports->addItem(port.text(), port.name);
        m_ui->comboBox_Ports->setItemData(m_ui->comboBox_Ports->count() - 1, port.details,
                                          Qt::ToolTipRole);
    }
}

void DeviceConnector::portChanged()
{
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::ChangePort, [this] { forgetDevices(); });
}

void DeviceConnector::deviceChanged(int index)
{
    // While a scan fills the list it is disabled, and filling it opens nothing.
    if (!m_ui->comboBox_Devices->isEnabled() || index < 0)
        return;
    m_session->stopAtOnce();
    m_session->runWhenIdle(DeviceSession::Kind::ChangeDevice, [this] { openCurrentDevice(); });
}

void DeviceConnector::leaveDevice()
{
    m_session->closeIfConnected();
    for (TabRoom* tab : m_tabs)
        tab->clear();
    for (TabRoom* tab : m_tabs)
        tab->setWidgetsEnabled(false);
}

void DeviceConnector::forgetDevices()
{
    leaveDevice();
    m_ui->comboBox_Devices->clear();
    showForceSensing(false);
}

void DeviceConnector::openCurrentDevice()
{
    if (m_ui->comboBox_Devices->currentIndex() < 0)
        return;
    leaveDevice();
    const auto adapter = adapterOfCurrentEntry();
    if (!adapter) {
        showForceSensing(false);
        return;
    }
    const auto target = m_session->open(adapter, currentPortName());
    if (!target)
        return;
    showForceSensing(m_session->hasForceSensing());
    for (TabRoom* tab : m_tabs) {
        tab->reload();
        if (!target->isCurrent())
            return;
    }
    m_timers->followCurrentPage();
}

std::shared_ptr<VantoProtocol> DeviceConnector::adapterOfCurrentEntry()
{
    DeviceAddress address;
    switch (parseDeviceEntry(m_ui->comboBox_Devices->currentText(), address)) {
    case EntryFault::UnknownProtocolType:
        showCritical(tr("Unknown device protocol type"));
        return {};
    case EntryFault::UnknownProtocolVersion:
        showCritical(tr("Unknown device protocol version"));
        return {};
    case EntryFault::UnknownDeviceName:
        showCritical(tr("Unknown device name"));
        return {};
    case EntryFault::None:
        break;
    }
    auto adapter = VantoProtocol::getProtocolInstance(address.type, address.major, address.minor);
    if (!adapter)
        showCritical(tr("Unsupported protocol version"));
    return adapter;
}

void DeviceConnector::showForceSensing(bool present)
{
    if (!present)
        m_session->forgetForceSensing();
    for (TabRoom* tab : m_tabs)
        tab->setForceSensing(present);
    // Hiding the current page would make its neighbour current.
    if (!present && m_ui->tabWidget->currentWidget() == m_ui->tab_Force)
        m_ui->tabWidget->setCurrentWidget(m_ui->tab_Basic);
    m_ui->tabWidget->setTabVisible(m_ui->tabWidget->indexOf(m_ui->tab_Force), present);
}

QString DeviceConnector::currentPortName() const
{
    return m_ui->comboBox_Ports->currentData().toString();
}

void DeviceConnector::showCritical(const QString& text)
{
    QMessageBox::critical(m_window, Program::title(), text);
}
