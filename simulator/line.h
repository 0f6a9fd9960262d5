#pragma once

#include "portlink.h"
#include "pseudoterminal.h"
#include "wire.h"

namespace vanto::simulator
{

// The cable between tool and hand: pseudo-terminal, lasting name and the bytes on it.
class Line : public QObject
{
    Q_OBJECT

public:
    Line(quint32 baud, const QString& linkPath, QObject* parent = nullptr);
    ~Line() override { unplug(); }

    // Returns the reason of a failure, else nothing.
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
