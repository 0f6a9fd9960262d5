#include "parameterexchange.h"

namespace vanto
{

namespace
{
constexpr std::uint8_t NoOperation = 0xFF; ///< for a kind that is read or written in another way

std::uint16_t toWord(const ParameterValue& value, qsizetype index = 0)
{
    return static_cast<std::uint16_t>(value.at(index));
}

std::uint8_t toByte(const ParameterValue& value)
{
    return static_cast<std::uint8_t>(value.first());
}

template<auto Operation>
std::uint8_t readWord(HandCall& call, std::uint8_t finger, ParameterValue& value)
{
    std::uint16_t word = 0;
    const std::uint8_t result = call.attempt<Operation>(finger, &word);
    value = {static_cast<double>(word)};
    return result;
}

template<auto Operation>
std::uint8_t readByte(HandCall& call, ParameterValue& value)
{
    std::uint8_t byte = 0;
    const std::uint8_t result = call.attempt<Operation>(&byte);
    value = {static_cast<double>(byte)};
    return result;
}

std::uint8_t readLimits(HandCall& call, std::uint8_t finger, ParameterValue& value)
{
    std::uint16_t lower = 0;
    std::uint16_t upper = 0;
    const std::uint8_t result =
        call.attempt<&VantoProtocol::getFingerPosLimit>(finger, &lower, &upper);
    value = {static_cast<double>(lower), static_cast<double>(upper)};
    return result;
}

std::uint8_t readCalibration(HandCall& call, ParameterValue& value)
{
    HandIdentity::Calibration c;
    const std::uint8_t result = call.attempt<&VantoProtocol::getCaliData>(
        c.ends.data(), c.starts.data(), std::uint8_t{FingerCount}, c.thumbRoots.data(),
        std::uint8_t{ThumbRootCount});
    value = fromCalibration(c);
    return result;
}

std::uint8_t writeCalibration(HandCall& call, const ParameterValue& value)
{
    const HandIdentity::Calibration c = toCalibration(value);
    return call.attempt<&VantoProtocol::setCaliData>(
        c.ends.data(), c.starts.data(), c.thumbRoots.data(), std::uint16_t{FingerCount},
        std::uint16_t{ThumbRootCount});
}
} // namespace

std::uint8_t ParameterExchange::readGains(HandCall& call, std::uint8_t finger, Gains& gains)
{
    return call.attempt<&VantoProtocol::getFingerPID>(finger, &gains[0], &gains[1], &gains[2],
                                                      &gains[3]);
}

std::uint8_t ParameterExchange::writeGains(HandCall& call, std::uint8_t finger, const Gains& gains)
{
    return call.attempt<&VantoProtocol::setFingerPID>(finger, gains[0], gains[1], gains[2],
                                                      gains[3]);
}

std::uint8_t ParameterExchange::read(HandCall& call, const ParameterKey& key, ParameterValue& value)
{
    const std::uint8_t finger = key.finger.value_or(0);
    switch (key.kind) {
    case ParameterKind::CurrentLimit:
        return readWord<&VantoProtocol::getFingerCurrentLimit>(call, finger, value);
    case ParameterKind::ForceLimit:
        return readWord<&VantoProtocol::getFingerForceLimit>(call, finger, value);
    case ParameterKind::PositionLimits:
        return readLimits(call, finger, value);
    case ParameterKind::SelfTestLevel:
        return readByte<&VantoProtocol::getSelfTestLevel>(call, value);
    case ParameterKind::BeepSwitch:
        return readByte<&VantoProtocol::getBeepSwitch>(call, value);
    case ParameterKind::Calibration:
        return readCalibration(call, value);
    default:
        return NoOperation;
    }
}

std::uint8_t ParameterExchange::write(HandCall& call, const ParameterKey& key,
                                      const ParameterValue& value)
{
    const std::uint8_t finger = key.finger.value_or(0);
    switch (key.kind) {
    case ParameterKind::CurrentLimit:
        return call.attempt<&VantoProtocol::setFingerCurrentLimit>(finger, toWord(value));
    case ParameterKind::ForceLimit:
        return call.attempt<&VantoProtocol::setFingerForceLimit>(finger, toWord(value));
    case ParameterKind::PositionLimits:
        return call.attempt<&VantoProtocol::setFingerPosLimit>(finger, toWord(value, 0),
                                                               toWord(value, 1));
    case ParameterKind::SelfTestLevel:
        return call.attempt<&VantoProtocol::setSelfTestLevel>(toByte(value));
    case ParameterKind::BeepSwitch:
        return call.attempt<&VantoProtocol::setBeepSwitch>(toByte(value));
    case ParameterKind::Calibration:
        return writeCalibration(call, value);
    default:
        return NoOperation;
    }
}

} // namespace vanto
