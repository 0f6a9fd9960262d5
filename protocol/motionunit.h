#pragma once

#include "fingers.h"
#include "handcall.h"

#include <optional>

namespace vanto
{

/// The unit of a motion: logical positions (0..65535) or angles (hundredths of a degree). Values
/// are plain integers, truncated to the 16 bits of the unit when they are sent. Each unit has one
/// object, so a reference identifies the unit.
class MotionUnit
{
public:
    struct Pose {
        PerFinger<int> targets{};
        PerFinger<int> currents{};
    };

    static const MotionUnit& position();
    static const MotionUnit& angle();

    virtual ~MotionUnit() = default;
    MotionUnit(const MotionUnit&) = delete;
    MotionUnit& operator=(const MotionUnit&) = delete;

    /// Returns true if the hand has accepted the motion.
    virtual bool move(HandCall& call, std::uint8_t finger, int value, std::uint8_t speed) const = 0;
    /// Reads the target of a finger. `operation`, if given, replaces the operation's name in the
    /// report of a failure.
    virtual std::optional<int> readTarget(HandCall& call, std::uint8_t finger,
                                          std::string_view operation = {}) const = 0;
    virtual std::optional<Pose> readPose(HandCall& call) const = 0;
    /// Like readPose(), but returns zeros on a failure and does not report it.
    virtual Pose readPoseOrZeros(HandCall& call) const = 0;

    /// Distance from the target within which a finger counts as arrived.
    virtual int arrivalTolerance() const = 0;
    bool isPosition() const { return this == &position(); }

protected:
    MotionUnit() = default;
};

} // namespace vanto
