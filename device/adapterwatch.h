#pragma once

#include "portlist.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <future>

namespace vanto
{

/// Lists the ports again when an adapter has been plugged in or removed. It waits for a change of
/// the device folder, so that it costs nothing while none happens.
class AdapterWatch : public QObject
{
    Q_OBJECT
public:
    explicit AdapterWatch(QObject* parent = nullptr);

signals:
    void sig_listed(const QList<PortEntry>& ports);

private:
    void list();

    QFileSystemWatcher m_folder;
    QTimer m_firstListing{this};
    QTimer m_lastListing{this};
    std::future<void> m_listing;
};

} // namespace vanto
