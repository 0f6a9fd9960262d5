#include "motionunit.h"

#include <algorithm>

namespace vanto
{

namespace
{
template<class Value, auto Set, auto Get, auto GetAll, int Tolerance>
class Unit : public MotionUnit
{
public:
    bool move(HandCall& call, std::uint8_t finger, int value, std::uint8_t speed) const override
    {
        return call.perform<Set>(finger, static_cast<Value>(value), speed);
    }

    std::optional<int> readTarget(HandCall& call, std::uint8_t finger,
                                  std::string_view operation) const override
    {
        Value target = 0;
        Value current = 0;
        const std::uint8_t result = call.attempt<Get>(finger, &target, &current);
        if (!call.accept(operation.empty() ? operationName<Get>() : operation, result))
            return {};
        return target;
    }

    std::optional<Pose> readPose(HandCall& call) const override
    {
        Values values;
        return call.accept<GetAll>(values.read(call)) ? std::optional(values.pose()) : std::nullopt;
    }

    Pose readPoseOrZeros(HandCall& call) const override
    {
        Values values;
        return values.read(call) == ResultCode::Success ? values.pose() : Pose{};
    }

    int arrivalTolerance() const override { return Tolerance; }

private:
    struct Values {
        PerFinger<Value> targets{};
        PerFinger<Value> currents{};

        std::uint8_t read(HandCall& call)
        {
            return call.attempt<GetAll>(targets.data(), currents.data(),
                                        static_cast<std::uint8_t>(FingerCount));
        }
        Pose pose() const
        {
            Pose pose;
            std::copy(targets.begin(), targets.end(), pose.targets.begin());
            std::copy(currents.begin(), currents.end(), pose.currents.begin());
            return pose;
        }
    };
};

constexpr int PositionTolerance = 256;
constexpr int AngleTolerance = 6;
} // namespace

const MotionUnit& MotionUnit::position()
{
    static const Unit<std::uint16_t, &VantoProtocol::setFingerPos, &VantoProtocol::getFingerPos,
                      &VantoProtocol::getFingerPosAll, PositionTolerance>
        unit;
    return unit;
}

const MotionUnit& MotionUnit::angle()
{
    static const Unit<std::int16_t, &VantoProtocol::setFingerAngle, &VantoProtocol::getFingerAngle,
                      &VantoProtocol::getFingerAngleAll, AngleTolerance>
        unit;
    return unit;
}

} // namespace vanto
