#pragma once

#include <QStringList>

#include <ctime>

namespace vanto
{

/// Records what the main thread is doing while it blocks the event loop: once it has used a given
/// processor time, a signal interrupts it and keeps its call stack. Only one object may exist.
class StackSampler
{
public:
    StackSampler(int firstMs, int intervalMs);
    ~StackSampler();
    StackSampler(const StackSampler&) = delete;
    StackSampler& operator=(const StackSampler&) = delete;

    /// The event loop runs: forgets the call stacks and measures the time from now on.
    void restart();
    /// The call stacks since restart(), innermost functions first. Outside this program only
    /// exported functions have a name.
    QStringList stacks() const;

private:
    timer_t m_timer{};
    itimerspec m_times{};
};

} // namespace vanto
