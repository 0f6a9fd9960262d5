#include "motiongate.h"

namespace vanto
{

namespace
{
MotionGate::State s_state = MotionGate::State::Open;
} // namespace

MotionGate::State MotionGate::state()
{
    return s_state;
}

void MotionGate::set(State state)
{
    s_state = state;
}

} // namespace vanto
