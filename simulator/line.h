#pragma once

#include "portlink.h"
#include "pseudoterminal.h"
#include "wire.h"

#include <cstdint>

namespace vanto::simulator
{

/// The serial line between tool and hand: pseudo-terminal, symbolic link and byte transfer.
class Line : public QObject
{
    Q_OBJECT

public:
    Line(std::uint32_t baud, const QString& linkPath, QObject* parent = nullptr);
    ~Line() override { unplug(); }

    /// Returns an error, or an empty string.
    QString plug();
    void unplug();

    bool isPlugged() const { return m_terminal.isOpen(); }
    QString path() const { return m_terminal.path(); }
    Wire& wire() { return m_wire; }

signals:
    void unplugged();

private:
    PseudoTerminal m_terminal;
    PortLink m_link;
    Wire m_wire;
};

} // namespace vanto::simulator
