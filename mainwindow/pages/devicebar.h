#pragma once

#include "controllock.h"
#include "deviceentry.h"
#include "devicesession.h"
#include "handscan.h"
#include "portlist.h"

#include <QPointer>
#include <QWidget>

class QTabWidget;

namespace vanto
{

class ConnectionView;
class DevicePage;
class HaltControl;
class PortBox;
class Reconnection;
class ScanRunner;
class StatusReporter;
namespace Ui
{
class DeviceBar;
}

/// The row above the pages: lists the ports, scans the chosen one for hands, and opens the hand of
/// the current Devices entry.
class DeviceBar : public QWidget
{
    Q_OBJECT
public:
    explicit DeviceBar(QWidget* parent = nullptr);
    ~DeviceBar() override;

    /// `pages` are reloaded in their order. They and `lockedActions` are locked together
    /// with this row.
    void setUp(DeviceSession* session, StatusReporter* reporter, QTabWidget* pages,
               const QList<QAction*>& lockedActions);
    /// Lists the ports at start-up, in a background thread.
    void listPortsInBackground();

    bool hasPort() const;
    /// The name of the current port.
    QString portName() const;
    bool hasCurrentDevice() const { return currentNode().has_value(); }
    /// The node of the current Devices entry.
    std::optional<std::uint8_t> currentNode() const;

    /// Opens the device of the current entry and reloads all pages.
    void openCurrentDevice();
    /// Reads what the pages show again; fields that the user has edited keep what has been typed.
    void reloadPages();
    /// If the port is lost, looks for the hand at once.
    void reconnectNow();
    /// The nodes of the next scans.
    HandScan::Range scanRange() const;
    void setScanRange(const HandScan::Range& range);
    /// Looks for a hand at one node, lists it and opens it.
    void openNode(const HandScan::Range& node);
    /// What the dialog for that is filled with at first.
    const HandScan::Range& suggestedNode() const { return m_suggestedNode; }
    void setSuggestedNode(const HandScan::Range& node) { m_suggestedNode = node; }
    /// Clears and disables all pages.
    void clearPages();
    /// Closes the open device and clears the list of devices.
    void resetDevices();
    /// Only clears the list.
    void clearDevices();
    /// Calls follow() of all pages.
    void followCurrentPage();

    HaltControl* haltControl() const { return m_haltControl; }

    /// The controls that stay usable during a long operation.
    enum class Usable { Nothing, Stop, TopRow };
    /// Disables the rest of this row, the pages, the update action and `actions` while the result
    /// exists.
    [[nodiscard]] ControlLock lockWindow(Usable usable, QList<QAction*> actions = {}) const;

signals:
    void sig_currentDeviceChanged();
    /// A hand has been opened and the pages show it.
    void sig_pagesLoaded();

private slots:
    void on_pushButton_RefreshPorts_clicked();
    void on_comboBox_Ports_currentIndexChanged(int index);
    void on_pushButton_ScanDevices_clicked();
    void on_comboBox_Devices_currentIndexChanged(int index);
    void on_comboBox_Devices_activated(int index);

private:
    void list(const QList<PortEntry>& ports);
    void closeCurrentDevice();
    std::shared_ptr<VantoProtocol> adapterOfCurrentEntry();
    void showForceSensing(bool present);
    void scan();
    HandScan::Outcome runScan(const HandScan::Range& range);
    void tryNode(const HandScan::Range& node);
    void addDevice(const DeviceEntry& entry);
    void showCritical(const QString& text);
    void showPortLost();
    void disablePages();
    void saveLastHand() const;
    void deselectDevice();
    void showReconnected(const PortEntry& port);
    void createHaltControl();
    void showHalted();

    std::unique_ptr<Ui::DeviceBar> ui;
    DeviceSession* m_session = nullptr;
    StatusReporter* m_reporter = nullptr;
    QTabWidget* m_tabs = nullptr;
    QList<QAction*> m_lockedActions;
    QList<DevicePage*> m_pages;
    ConnectionView* m_connection = nullptr;
    Reconnection* m_reconnection = nullptr;
    PortBox* m_portBox = nullptr;
    ScanRunner* m_scan = nullptr;
    HaltControl* m_haltControl = nullptr;
    HandScan::Range m_suggestedNode;
    QPointer<QWidget> m_focusBeforeLoss;
    bool m_openedPartly = false; ///< the opening has been cut short
    bool m_indexChanged = false; ///< of the Devices list, by the choice under way
};

} // namespace vanto
