#include "portbox.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QSignalBlocker>

#include <algorithm>

namespace vanto
{

namespace
{
/// Until an open list is checked again.
constexpr int ClosedListCheckMs = 300;
} // namespace

PortBox::PortBox(QComboBox* box, const QString& lastPort)
    : QObject(box), m_box(box), m_lastPort(lastPort)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(ClosedListCheckMs);
    connect(&m_delay, &QTimer::timeout, this, [this] { addNew(m_delayed); });
    connect(&m_watch, &AdapterWatch::sig_listed, this, [this](const QList<PortEntry>& ports) {
        m_delay.stop();
        addNew(ports);
    });
}

bool PortBox::hasPort() const
{
    return m_box->currentIndex() >= 0;
}

PortEntry PortBox::port() const
{
    return m_ports.value(m_box->currentIndex());
}

void PortBox::listInBackground()
{
    // Listing the ports takes longer than building the form.
    m_listing = std::async(std::launch::async, [this] {
        QMetaObject::invokeMethod(this, [this, ports = availablePorts()] {
            if (!m_listed)
                emit sig_listed(ports);
        });
    });
}

void PortBox::list(const QList<PortEntry>& ports)
{
    // The port that is chosen, else that of the last hand, else one that the user has added.
    QStringList preferredPorts{port().name};
    if (!m_listed)
        preferredPorts << m_lastPort << addedPorts();
    m_listed = true;
    const QSignalBlocker blocker(m_box);
    m_box->clear();
    m_ports.clear();
    for (const PortEntry& port : ports)
        insert(m_ports.size(), port);
    for (const QString& name : preferredPorts) {
        if (const int index = m_box->findData(name); index >= 0) {
            m_box->setCurrentIndex(index);
            break;
        }
    }
}

/// Entries of ports that have vanished stay, as their adapter can come back.
void PortBox::addNew(const QList<PortEntry>& ports)
{
    if (!m_listed)
        return;
    if (m_box->view()->isVisible()) { // do not move entries under the mouse
        m_delayed = ports;
        m_delay.start();
        return;
    }
    const QSignalBlocker blocker(m_box);
    qsizetype next = 0; // index after the entry of the previous port
    for (const PortEntry& port : ports) {
        const auto known = std::ranges::find(m_ports, port.name, &PortEntry::name);
        const qsizetype index = known - m_ports.begin();
        if (known == m_ports.end()) {
            insert(next++, port);
            continue;
        }
        next = index + 1;
        // The current entry describes the adapter that is open or lost; see updateCurrent().
        if (index != m_box->currentIndex() && *known != port) {
            *known = port;
            show(index);
        }
    }
}

void PortBox::insert(qsizetype index, const PortEntry& port)
{
    m_ports.insert(index, port);
    m_box->insertItem(static_cast<int>(index), QString());
    show(index);
}

PortEntry PortBox::updateCurrent()
{
    if (addedPorts().contains(port().name)) // never changes, and listing takes milliseconds
        return port();
    const QList<PortEntry> ports = availablePorts();
    const auto found = std::ranges::find(ports, port().name, &PortEntry::name);
    if (found != ports.end())
        replaceCurrent(*found);
    return port();
}

void PortBox::replaceCurrent(const PortEntry& port)
{
    const int index = m_box->currentIndex();
    if (index < 0)
        return;
    m_box->hidePopup(); // do not move entries under the mouse
    const QSignalBlocker blocker(m_box);
    // Its new name may have been listed already.
    for (int other = m_box->count() - 1; other >= 0; --other) {
        if (other != index && m_ports[other].name == port.name) {
            m_ports.removeAt(other);
            m_box->removeItem(other);
        }
    }
    m_ports[m_box->currentIndex()] = port;
    show(m_box->currentIndex());
}

void PortBox::show(qsizetype index)
{
    const PortEntry& port = m_ports[index];
    const int item = static_cast<int>(index);
    m_box->setItemText(item, port.text());
    m_box->setItemData(item, port.name);
    m_box->setItemData(item, port.details, Qt::ToolTipRole);
}

} // namespace vanto
