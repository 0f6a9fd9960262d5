#include "interruption.h"

#include "motiongate.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace vanto
{

namespace
{
std::atomic<int> s_signals = 0;
std::atomic<bool> s_halt = false;
std::atomic<bool> s_firstHalts = false;
std::array<int, 2> s_pipe{-1, -1};
constexpr std::array EndingSignals{SIGINT, SIGTERM, SIGHUP, SIGQUIT};

void handleSignal(int signal)
{
    const int error = errno;
    MotionGate::refuseMotions();
    if (++s_signals > 1 || signal != SIGINT || s_firstHalts)
        s_halt = true;
    const char byte = 0;
    [[maybe_unused]] const auto written = write(s_pipe[1], &byte, 1);
    errno = error;
}
} // namespace

Interruption::Interruption(QObject* parent) : QObject(parent)
{
    if (pipe2(s_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("cannot create a pipe");
    m_notifier = new QSocketNotifier(s_pipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &Interruption::receive);
    // Without SA_RESTART, so that a blocked write ends.
    struct sigaction action = {};
    action.sa_handler = handleSignal;
    for (const int signal : EndingSignals)
        sigaction(signal, &action, nullptr);
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

Interruption::~Interruption()
{
    for (const int signal : EndingSignals)
        ::signal(signal, SIG_DFL);
    for (int& end : s_pipe)
        close(end);
}

bool Interruption::isRequested()
{
    return s_signals > 0;
}

bool Interruption::isHaltRequested()
{
    return s_halt;
}

void Interruption::haltAtFirst()
{
    s_firstHalts = true;
}

void Interruption::receive()
{
    char byte = 0;
    while (read(s_pipe[0], &byte, 1) == 1)
        emit sig_requested();
}

} // namespace vanto
