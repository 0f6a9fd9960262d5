#include "stacksampler.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <memory>
#include <unistd.h>

#if defined(VANTO_ADDRESS_SANITIZER)
#include <sanitizer/common_interface_defs.h>
#endif

namespace vanto
{

namespace
{
constexpr std::size_t MaxStacks = 4;
constexpr std::size_t MaxDepth = 96;

struct Stack {
    std::array<void*, MaxDepth> frames;
    int depth = 0;
};

// Written by the signal handler, which runs on the thread that reads them.
std::array<Stack, MaxStacks> s_stacks;
volatile std::sig_atomic_t s_count = 0;

void sample(int)
{
    const int count = s_count;
    if (count >= static_cast<int>(MaxStacks))
        return;
    Stack& stack = s_stacks[static_cast<std::size_t>(count)];
    stack.depth = backtrace(stack.frames.data(), MaxDepth);
    s_count = count + 1;
}

QString nameOf(void* address)
{
#if defined(VANTO_ADDRESS_SANITIZER)
    std::array<char, 512> text{};
    __sanitizer_symbolize_pc(address, "%f", text.data(), text.size());
    return QString::fromLocal8Bit(text.data());
#else
    Dl_info info{};
    if (dladdr(address, &info) == 0)
        return QStringLiteral("?");
    if (!info.dli_sname) // for addr2line
        return QStringLiteral("%1+0x%2")
            .arg(QString::fromLocal8Bit(info.dli_fname))
            .arg(static_cast<char*>(address) - static_cast<char*>(info.dli_fbase), 0, 16);
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(info.dli_sname, nullptr, nullptr, &status), &std::free);
    return QString::fromLocal8Bit(name ? name.get() : info.dli_sname);
#endif
}

timespec toTime(int ms)
{
    return {ms / 1000, (ms % 1000) * 1'000'000L};
}
} // namespace

StackSampler::StackSampler(int firstMs, int intervalMs)
{
    m_times = {.it_interval = toTime(intervalMs), .it_value = toTime(firstMs)};
    Stack unused;
    backtrace(unused.frames.data(), 1); // loads what it needs: the handler must not
    struct sigaction action = {};
    action.sa_handler = sample;
    action.sa_flags = SA_RESTART;
    sigaction(SIGRTMIN, &action, nullptr);
    sigevent event{};
    event.sigev_notify = SIGEV_THREAD_ID;
    event.sigev_signo = SIGRTMIN;
    event._sigev_un._tid = gettid();
    timer_create(CLOCK_THREAD_CPUTIME_ID, &event, &m_timer);
    restart();
}

StackSampler::~StackSampler()
{
    timer_delete(m_timer);
}

void StackSampler::restart()
{
    s_count = 0;
    timer_settime(m_timer, 0, &m_times, nullptr);
}

QStringList StackSampler::stacks() const
{
    QStringList texts;
    for (int i = 0; i < s_count; ++i) {
        const Stack& stack = s_stacks[static_cast<std::size_t>(i)];
        QStringList names;
        for (int frame = 2; frame < stack.depth; ++frame) // without the handler
            names.append(nameOf(stack.frames[static_cast<std::size_t>(frame)]));
        texts.append(names.join(QLatin1String("\n    ")));
    }
    return texts;
}

} // namespace vanto
