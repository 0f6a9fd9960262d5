#pragma once

#include <QSocketNotifier>
#include <QString>

#include <memory>

namespace vanto::simulator
{

// A pseudo-terminal whose far side is opened by the tool as its serial port. An own descriptor of
// the far side is kept, so that the tool may come and go without a hang-up.
class PseudoTerminal
{
public:
    PseudoTerminal() = default;
    ~PseudoTerminal() { close(); }
    Q_DISABLE_COPY_MOVE(PseudoTerminal)

    // Returns the reason of a failure, else nothing.
    QString open();
    void close();

    bool isOpen() const { return m_master >= 0; }
    int master() const { return m_master; }
    QString path() const { return m_path; }

    // To be called before bytes are read: only a user can have sent them.
    void noteRequest();
    // To be called after bytes are written: without a user they are lost, as on a real wire.
    void discardUnheard();

private:
    bool serviceUsers();
    void tidyAfterUser();
    QString openBothSides();
    void watchUsers();

    int m_master = -1;
    int m_slave = -1;
    int m_watch = -1;
    bool m_used = false;
    QString m_path;
    std::unique_ptr<QSocketNotifier> m_usersChanged;
};

} // namespace vanto::simulator
