#include "motiongate.h"

#include <atomic>

namespace vanto
{

namespace
{
MotionGate::State s_state = MotionGate::State::Open;
bool s_refusing = false;
std::atomic<bool> s_refuses = false; ///< for the rest of the process
static_assert(std::atomic<bool>::is_always_lock_free);
} // namespace

MotionGate::State MotionGate::state()
{
    return s_state == State::Open && (s_refusing || s_refuses) ? State::Latched : s_state;
}

void MotionGate::refuseMotions()
{
    s_refuses = true;
}

void MotionGate::setRefusing(bool refusing)
{
    s_refusing = refusing;
}

void MotionGate::set(State state)
{
    s_state = state;
}

} // namespace vanto
