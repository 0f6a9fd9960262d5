#pragma once

#include "devicesession.h"
#include "portlist.h"

#include <QCoreApplication>

#include <vector>

class PageTimers;
class TabRoom;
namespace Ui
{
class MainWindow;
}

/// The Ports and Devices lists: fills the first, opens the device of the second's current entry.
class DeviceConnector
{
    Q_DECLARE_TR_FUNCTIONS(DeviceConnector)
public:
    /// `tabs` in the order in which they are reloaded.
    DeviceConnector(Ui::MainWindow* ui, QWidget* window, DeviceSession* session, PageTimers* timers,
                    std::vector<TabRoom*> tabs);

    void refreshClicked();
    /// Fills the Ports list unless a Refresh has been quicker.
    void listPortsAtStart(const QList<PortEntry>& ports);
    void portChanged();
    void deviceChanged(int index);

    /// Closes what is open; nothing that the tabs show is true any more.
    void leaveDevice();
    /// leaveDevice(), and the devices that were found are not there any more either.
    void forgetDevices();
    /// Opens the device of the current entry and reloads all tabs.
    void openCurrentDevice();
    /// What the current Ports entry is opened by.
    QString currentPortName() const;

private:
    void listPorts(const QList<PortEntry>& ports);
    std::shared_ptr<VantoProtocol> adapterOfCurrentEntry();
    void showForceSensing(bool present);
    void showCritical(const QString& text);

    Ui::MainWindow* m_ui;
    QWidget* m_window;
    DeviceSession* m_session;
    PageTimers* m_timers;
    std::vector<TabRoom*> m_tabs;
    bool m_portsListed = false;
};
