#include "line.h"

namespace vanto::simulator
{

Line::Line(std::uint32_t baud, const QString& linkPath, QObject* parent)
    : QObject(parent), m_link(linkPath), m_wire(baud)
{
    connect(&m_wire, &Wire::aboutToRead, this, [this] { m_terminal.markInUse(); });
    connect(&m_wire, &Wire::written, this, [this] { m_terminal.discardUnread(); });
}

QString Line::plug()
{
    QString error = m_terminal.open();
    if (error.isEmpty())
        error = m_link.setTarget(m_terminal.path());
    if (!error.isEmpty()) {
        m_terminal.close();
        return error;
    }
    m_wire.attach(m_terminal.master());
    return {};
}

void Line::unplug()
{
    m_link.remove();
    m_wire.detach();
    m_terminal.close();
    emit unplugged();
}

} // namespace vanto::simulator
