#include "adapterwatch.h"

namespace vanto
{

namespace
{
constexpr QLatin1String DeviceFolder("/dev");
constexpr int FirstListingMs = 200;
/// The system sets the ids and the permissions of a new adapter after it has created the device.
constexpr int LastListingMs = 1500;
/// Interval on systems without a device folder.
constexpr int PollMs = 1000;
} // namespace

AdapterWatch::AdapterWatch(QObject* parent) : QObject(parent)
{
    for (QTimer* timer : {&m_firstListing, &m_lastListing}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &AdapterWatch::list);
    }
    if (!m_folder.addPath(DeviceFolder)) {
        m_firstListing.setSingleShot(false);
        m_firstListing.start(PollMs);
        return;
    }
    connect(&m_folder, &QFileSystemWatcher::directoryChanged, this, [this] {
        if (!m_firstListing.isActive())
            m_firstListing.start(FirstListingMs);
        m_lastListing.start(LastListingMs);
    });
}

void AdapterWatch::list()
{
    if (m_listing.valid() &&
        m_listing.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    // Listing takes milliseconds that the user interface should not spend.
    m_listing = std::async(std::launch::async, [this] {
        QMetaObject::invokeMethod(this,
                                  [this, ports = availablePorts()] { emit sig_listed(ports); });
    });
}

} // namespace vanto
