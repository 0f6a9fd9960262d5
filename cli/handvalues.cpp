#include "handvalues.h"

#include "fingers.h"
#include "motionunit.h"
#include "parameterset.h"
#include "sample.h"

#include <QJsonObject>
#include <QString>

#include <algorithm>

namespace vanto
{

namespace
{
QString reduced(QString name)
{
    return name.remove(QLatin1Char('-')).remove(QLatin1Char('_')).toLower();
}

/// An operation with one output.
template<auto Operation, class Value>
QJsonValue readOne(HandCall& call, std::uint8_t finger)
{
    Value value = 0;
    if constexpr (std::is_invocable_v<decltype(Operation), VantoProtocol&, std::uint8_t,
                                      std::uint8_t, Value*>)
        return call.perform<Operation>(finger, &value) ? QJsonValue(value)
                                                       : QJsonValue(QJsonValue::Undefined);
    else
        return call.perform<Operation>(&value) ? QJsonValue(value)
                                               : QJsonValue(QJsonValue::Undefined);
}

/// An operation with the target and the current value of a finger.
template<auto Operation, class Value, bool WantsTarget, bool IsAngle = false>
QJsonValue readMotion(HandCall& call, std::uint8_t finger)
{
    Value target = 0;
    Value current = 0;
    if (!call.perform<Operation>(finger, &target, &current))
        return QJsonValue::Undefined;
    const Value value = WantsTarget ? target : current;
    return IsAngle ? QJsonValue(value / HundredthsPerDegree) : QJsonValue(value);
}

enum class Side { Target, Current };

/// A motion of all fingers.
template<Side side>
QJsonArray readPose(HandCall& call, const MotionUnit& unit)
{
    QJsonArray values;
    const auto pose = unit.readPose(call);
    if (!pose)
        return values;
    for (const int value : side == Side::Target ? pose->targets : pose->currents)
        values.append(unit.isPosition() ? QJsonValue(value)
                                        : QJsonValue(value / HundredthsPerDegree));
    return values;
}

template<Side side>
QJsonArray readPositions(HandCall& call)
{
    return readPose<side>(call, MotionUnit::position());
}

template<Side side>
QJsonArray readAngles(HandCall& call)
{
    return readPose<side>(call, MotionUnit::angle());
}

QJsonValue readForce(HandCall& call, std::uint8_t finger)
{
    std::uint16_t force = 0;
    return call.perform<&VantoProtocol::getFingerForce>(finger, &force, std::uint8_t{1})
               ? QJsonValue(force)
               : QJsonValue(QJsonValue::Undefined);
}

QJsonValue readProtocolVersion(HandCall& call, std::uint8_t)
{
    HandFacts facts;
    auto& version = facts.protocol.emplace(HandIdentity::Protocol());
    if (!call.perform<&VantoProtocol::getProtocolVersion>(&version.major, &version.minor))
        return QJsonValue::Undefined;
    return facts.protocolVersion();
}

QJsonValue readFirmwareVersion(HandCall& call, std::uint8_t)
{
    HandFacts facts;
    auto& version = facts.firmware.emplace(HandIdentity::Firmware());
    if (!call.perform<&VantoProtocol::getFirmwareVersion>(&version.major, &version.minor,
                                                          &version.revision))
        return QJsonValue::Undefined;
    return facts.firmwareText();
}

QJsonValue readHardware(HandCall& call, std::uint8_t)
{
    HandIdentity::Hardware hardware;
    if (!call.perform<&VantoProtocol::getHardwareVersion>(&hardware.type, &hardware.version,
                                                          &hardware.bootLoader))
        return QJsonValue::Undefined;
    return hardware.text();
}

QJsonValue readPreset(HandCall& call, std::uint8_t)
{
    std::uint16_t position = 0;
    std::uint8_t index = 0;
    if (!call.perform<&VantoProtocol::getThumbRootPos>(&position, &index))
        return QJsonValue::Undefined;
    return QJsonObject{{QStringLiteral("position"), position}, {QStringLiteral("preset"), index}};
}

QJsonValue readUid(HandCall& call, std::uint8_t)
{
    HandFacts facts;
    auto& uid = facts.uid.emplace();
    if (!call.perform<&VantoProtocol::getUID>(&uid[0], &uid[1], &uid[2]))
        return QJsonValue::Undefined;
    return facts.uidText();
}

QJsonValue readUsage(HandCall& call, std::uint8_t)
{
    std::uint32_t total = 0;
    PerFinger<std::uint32_t> perFinger{};
    if (!call.perform<&VantoProtocol::getUsageStat>(&total, perFinger.data(),
                                                    std::uint8_t{FingerCount}))
        return QJsonValue::Undefined;
    QJsonArray fingers;
    for (const std::uint32_t count : perFinger)
        fingers.append(qint64{count});
    return QJsonObject{{QStringLiteral("total"), qint64{total}},
                       {QStringLiteral("fingers"), fingers}};
}
} // namespace

const std::vector<HandValue>& handValues()
{
    constexpr int Fingers = FingerCount;
    using Hand = VantoProtocol;
    using Word = std::uint16_t;
    using Angle = std::int16_t;
    static const std::vector<HandValue> values{
        {"current", Fingers, readOne<&Hand::getFingerCurrent, Word>},
        {"force", ForceFingerCount, readForce},
        {"position", Fingers, readMotion<&Hand::getFingerPos, Word, false>,
         readPositions<Side::Current>},
        {"targetPosition", Fingers, readMotion<&Hand::getFingerPos, Word, true>,
         readPositions<Side::Target>},
        {"angle", Fingers, readMotion<&Hand::getFingerAngle, Angle, false, true>,
         readAngles<Side::Current>},
        {"targetAngle", Fingers, readMotion<&Hand::getFingerAngle, Angle, true, true>,
         readAngles<Side::Target>},
        {"rawPosition", Fingers, readMotion<&Hand::getFingerPosAbs, Word, false>},
        {"rawTarget", Fingers, readMotion<&Hand::getFingerPosAbs, Word, true>},
        {"thumbRootPreset", 0, readPreset},
        {"batteryVoltage", 0, readOne<&Hand::getBatteryVoltage, Word>},
        {"buttonCount", 0, readOne<&Hand::getButtonPressedCnt, std::uint8_t>},
        {"usage", 0, readUsage},
        {"firmware", 0, readFirmwareVersion},
        {"protocolVersion", 0, readProtocolVersion},
        {"hardware", 0, readHardware},
        {"uid", 0, readUid},
    };
    return values;
}

const HandValue* findHandValue(const QString& name)
{
    const auto found = std::ranges::find_if(handValues(), [&](const HandValue& each) {
        return reduced(name) == reduced(QLatin1String(each.name));
    });
    return found == handValues().end() ? nullptr : &*found;
}

} // namespace vanto
