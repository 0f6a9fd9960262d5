#pragma once

#include "fingers.h"
#include "handcall.h"

#include <optional>

namespace vanto
{

/// In what fingers are moved: logical positions (0..65535) or angles (hundredths of a degree). Both
/// are used alike; values are plain integers here and cut to the 16 bits of the unit when they are
/// sent. There are two objects, so a reference says which unit is meant.
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

    /// True if the hand has accepted the motion.
    virtual bool move(HandCall& call, std::uint8_t finger, int value, std::uint8_t speed) const = 0;
    /// The target of a finger; `operation` is the name that a failure is reported with, if it is
    /// not that of the operation.
    virtual std::optional<int> readTarget(HandCall& call, std::uint8_t finger,
                                          std::string_view operation = {}) const = 0;
    virtual std::optional<Pose> readPose(HandCall& call) const = 0;
    /// The same for a reader that passes over a failure in silence: zeros then.
    virtual Pose readPoseIfPossible(HandCall& call) const = 0;

    /// How far from its target a finger has arrived.
    virtual int arrivalWindow() const = 0;
    bool isPosition() const { return this == &position(); }

protected:
    MotionUnit() = default;
};

} // namespace vanto
