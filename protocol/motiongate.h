#pragma once

#include <string_view>

namespace vanto
{

/// Decides for the whole process which operations HandCall sends to hands.
class MotionGate
{
public:
    enum class State {
        Open,    ///< all
        Latched, ///< all that do not move a finger: the hand has been halted
        Closed   ///< only those of the halt that is in progress
    };

    static State state();
    static void set(State state);
    /// From now on an open gate counts as latched, for the rest of the process. May be called by a
    /// signal handler.
    static void refuseMotions();
    /// While it is set, an open gate counts as latched.
    static void setRefusing(bool refusing);

    /// Whether the operation of this name can move a finger.
    static constexpr bool isMotion(std::string_view operation)
    {
        for (const std::string_view motion :
             {"setFingerPos", "setFingerPosAll", "setFingerPosAbs", "setFingerPosAbsAll",
              "setFingerAngle", "setFingerAngleAll", "fingerStart", "startInit", "calibrate",
              "reset"})
            if (operation == motion)
                return true;
        return false;
    }
};

} // namespace vanto
