#pragma once

#include <QSocketNotifier>
#include <QString>

#include <memory>

namespace vanto::simulator
{

/// A pseudo-terminal whose slave side the tool opens as its serial port. This class also keeps the
/// slave side open, so that the master side does not hang up when the tool closes the port.
class PseudoTerminal
{
public:
    PseudoTerminal() = default;
    ~PseudoTerminal() { close(); }
    Q_DISABLE_COPY_MOVE(PseudoTerminal)

    /// Returns an error, or an empty string.
    QString open();
    void close();

    bool isOpen() const { return m_master >= 0; }
    int master() const { return m_master; }
    QString path() const { return m_path; }

    /// Must be called before bytes are read: only a client can have sent them.
    void markInUse();
    /// Must be called after bytes are written: without a client they are lost, as on a real line.
    void discardUnread();

private:
    bool processOpenEvents();
    void resetAfterClient();
    QString openBothSides();
    void watchClients();

    int m_master = -1;
    int m_slave = -1;
    int m_watch = -1;
    bool m_inUse = false;
    QString m_path;
    std::unique_ptr<QSocketNotifier> m_clientsChanged;
};

} // namespace vanto::simulator
