#pragma once

#include "adapterwatch.h"

#include <QObject>
#include <QTimer>

#include <optional>

class QComboBox;

namespace vanto
{

/// Fills the list of ports and follows the adapters that are plugged in. None of its changes counts
/// as a choice of the user.
class PortBox : public QObject
{
    Q_OBJECT
public:
    /// `box` owns this object. `lastPort` is the port of the last hand that was open before the
    /// start.
    PortBox(QComboBox* box, const QString& lastPort);

    bool hasPort() const;
    /// The current port; without a name if there is none.
    PortEntry port() const;
    /// Lists the ports once in a background thread, unless list() is called before.
    void listInBackground();
    /// Lists these ports instead of those that are listed. The current one stays current if it is
    /// among them.
    void list(const QList<PortEntry>& ports);
    /// The current port as it is now: another adapter may have taken its name.
    PortEntry updateCurrent();
    /// An adapter can come back under another name.
    void replaceCurrent(const PortEntry& port);

signals:
    /// The ports at the start.
    void sig_listed(const QList<PortEntry>& ports);

private:
    void addNew(const QList<PortEntry>& ports);
    void insert(qsizetype index, const PortEntry& port);
    void show(qsizetype index);

    QComboBox* m_box;
    QString m_lastPort;
    QList<PortEntry> m_ports; ///< as listed
    AdapterWatch m_watch{this};
    QTimer m_delay{this};
    QList<PortEntry> m_delayed; ///< listed while the list was open
    bool m_listed = false;
    std::future<void> m_listing; ///< its destructor waits for the listing
};

} // namespace vanto
