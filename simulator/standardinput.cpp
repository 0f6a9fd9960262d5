#include "standardinput.h"

#include <array>
#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

namespace vanto
{

namespace
{
constexpr std::size_t ReadChunkSize = 4096;

int openTerminationDescriptor()
{
    sigset_t watched;
    sigemptyset(&watched);
    sigaddset(&watched, SIGINT);
    sigaddset(&watched, SIGTERM);
    sigaddset(&watched, SIGHUP);
    sigprocmask(SIG_BLOCK, &watched, nullptr);
    return signalfd(-1, &watched, SFD_NONBLOCK | SFD_CLOEXEC);
}
} // namespace

StandardInput::StandardInput(QObject* parent)
    : QObject(parent), m_readable(STDIN_FILENO, QSocketNotifier::Read)
{
    connect(&m_readable, &QSocketNotifier::activated, this, &StandardInput::readAvailable);
}

void StandardInput::readAvailable()
{
    std::array<char, ReadChunkSize> buffer{};
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count > 0) {
        m_pending.append(buffer.data(), count);
        emitLines();
        return;
    }
    m_readable.setEnabled(false);
    if (!m_pending.isEmpty()) {
        m_pending.append('\n');
        emitLines();
    }
    emit closed();
}

void StandardInput::emitLines()
{
    qsizetype end = -1;
    while ((end = m_pending.indexOf('\n')) >= 0) {
        const QString text = QString::fromLocal8Bit(m_pending.first(end));
        m_pending.remove(0, end + 1);
        emit lineRead(text);
    }
}

TerminationWatch::TerminationWatch(QObject* parent)
    : QObject(parent),
      m_descriptor(openTerminationDescriptor()),
      m_readable(m_descriptor, QSocketNotifier::Read)
{
    connect(&m_readable, &QSocketNotifier::activated, this, &TerminationWatch::requested);
}

TerminationWatch::~TerminationWatch()
{
    m_readable.setEnabled(false);
    ::close(m_descriptor);
}

} // namespace vanto
