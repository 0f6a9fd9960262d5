#include "parameterreader.h"

#include "parameterexchange.h"

#include <algorithm>
#include <cmath>

namespace vanto
{

namespace
{
bool readsKind(const QList<ParameterKey>& keys, ParameterKind kind)
{
    return std::ranges::any_of(keys, [kind](const ParameterKey& key) { return key.kind == kind; });
}
} // namespace

ParameterReader::ParameterReader(HandTarget target, Options options)
    : HandTask(std::move(target), options.timeoutsInARow), m_options(std::move(options))
{
    const PROTOCOL_TYPE protocol = this->target().adapter->protocolType();
    m_parameters.hand.node = this->target().node;
    m_parameters.hand.protocolType = protocol;
    m_parameters.time = QDateTime::currentDateTimeUtc();
    m_parameters.toolVersion = m_options.toolVersion;

    using What = Step::What;
    if (m_options.facts) {
        m_steps = {{What::Firmware}, {What::Protocol}, {What::Hardware}};
        if (protocol == PROTOCOL_TYPE_SERIALCTRL)
            m_steps.push_back({What::Uid});
    }
    if (!m_options.forceSensing && readsKind(m_options.keys, ParameterKind::ForceLimit))
        m_steps.push_back({What::ForceProbe});
    addParameters();
    if (m_steps.empty())
        finish(Outcome::Completed);
    else if (m_options.facts)
        m_steps.push_back({What::SameHand});
}

/// The calibration comes first, because it tells one hand from another.
void ParameterReader::addParameters()
{
    // The one of std::ranges cannot be built by clang 14 with the library of GCC 12.
    std::stable_partition(
        m_options.keys.begin(), m_options.keys.end(),
        [](const ParameterKey& key) { return key.kind == ParameterKind::Calibration; });
    PerFinger<bool> readsGains{};
    for (const ParameterKey& key : std::as_const(m_options.keys)) {
        if (isGain(key.kind) && std::exchange(readsGains.at(*key.finger), true))
            continue; // all gains of a finger are one read
        m_steps.push_back({Step::What::Parameter, key});
    }
}

int ParameterReader::stepCount() const
{
    return static_cast<int>(m_steps.size());
}

void ParameterReader::perform(int step)
{
    const Step& now = m_steps[static_cast<std::size_t>(step)];
    if (now.what == Step::What::SameHand) {
        checkHand();
        return;
    }
    if (now.what == Step::What::Parameter && !isAvailable(now.key))
        return;
    HandCall call(target());
    const std::uint8_t result =
        now.what == Step::What::Parameter ? readParameter(call, now.key) : readFact(call, now.what);
    m_hadTimeout = m_hadTimeout || result == ResultCode::Timeout;
    if (!noteRead(call, result) || result == ResultCode::Success)
        return;
    if (now.what == Step::What::Parameter)
        refuse(now.key, result, call.subError());
    else if (now.what == Step::What::Uid)
        m_parameters.hand.isUidUnreadable = isDamagedReply(result);
}

void ParameterReader::checkHand()
{
    if (!m_hadTimeout)
        return;
    HandCall call(target());
    const auto identity = HandIdentity::read(call);
    HandFacts::Uid uid{};
    const HandFacts& facts = m_parameters.hand;
    const std::uint8_t result =
        !identity    ? ResultCode::Timeout
        : !facts.uid ? ResultCode::Success
                     : call.attempt<&VantoProtocol::getUID>(&uid[0], &uid[1], &uid[2]);
    if (!noteRead(call, result))
        return;
    const auto calibration = m_parameters.value({ParameterKind::Calibration});
    const HandIdentity known{facts.firmware, facts.protocol, facts.hardware,
                             calibration ? std::optional(toCalibration(*calibration))
                                         : std::nullopt};
    if (result != ResultCode::Success || !identity->matches(known) ||
        (facts.uid && uid != *facts.uid))
        finish(Outcome::OtherHand);
}

std::uint8_t ParameterReader::readFact(HandCall& call, Step::What what)
{
    HandFacts& facts = m_parameters.hand;
    HandIdentity::Firmware f;
    HandIdentity::Protocol p;
    HandIdentity::Hardware h;
    HandFacts::Uid u{};
    std::uint16_t force = 0;
    const auto keep = [](std::uint8_t result, auto& fact, const auto& value) {
        if (result == ResultCode::Success)
            fact = value;
        return result;
    };
    switch (what) {
    case Step::What::Firmware:
        return keep(
            call.attempt<&VantoProtocol::getFirmwareVersion>(&f.major, &f.minor, &f.revision),
            facts.firmware, f);
    case Step::What::Protocol:
        return keep(call.attempt<&VantoProtocol::getProtocolVersion>(&p.major, &p.minor),
                    facts.protocol, p);
    case Step::What::Hardware:
        return keep(
            call.attempt<&VantoProtocol::getHardwareVersion>(&h.type, &h.version, &h.bootLoader),
            facts.hardware, h);
    case Step::What::Uid:
        return keep(call.attempt<&VantoProtocol::getUID>(&u[0], &u[1], &u[2]), facts.uid, u);
    case Step::What::ForceProbe:
        return keep(
            call.attempt<&VantoProtocol::getFingerForce>(ForceProbeFinger, &force, std::uint8_t{1}),
            m_options.forceSensing, true);
    case Step::What::Parameter:
    case Step::What::SameHand:
        break;
    }
    return ResultCode::Success;
}

std::uint8_t ParameterReader::readParameter(HandCall& call, const ParameterKey& key)
{
    if (!isGain(key.kind)) {
        ParameterValue value;
        const std::uint8_t result = ParameterExchange::read(call, key, value);
        if (result == ResultCode::Success)
            m_parameters.values[key] = value;
        return result;
    }
    ParameterExchange::Gains gains{};
    const std::uint8_t result = ParameterExchange::readGains(call, *key.finger, gains);
    if (result == ResultCode::Success)
        for (const ParameterKey& gain : gainsOf(*key.finger))
            keepGain(gain, gains.at(static_cast<std::size_t>(gain.kind)));
    return result;
}

/// A file cannot hold a gain that is not a number.
void ParameterReader::keepGain(const ParameterKey& key, float gain)
{
    if (std::isfinite(gain))
        m_parameters.values[key] = {double{gain}};
    else
        m_parameters.refused.append({key, ResultCode::Success, 0});
}

void ParameterReader::refuse(const ParameterKey& key, std::uint8_t result, std::uint8_t subError)
{
    const QList<ParameterKey> keys = isGain(key.kind) ? gainsOf(*key.finger) : QList{key};
    for (const ParameterKey& refused : keys)
        m_parameters.refused.append({refused, result, subError});
}

/// Those gains of the finger that are to be read.
QList<ParameterKey> ParameterReader::gainsOf(std::uint8_t finger) const
{
    QList<ParameterKey> gains;
    std::ranges::copy_if(m_options.keys, std::back_inserter(gains), [=](const ParameterKey& key) {
        return isGain(key.kind) && key.finger == finger;
    });
    return gains;
}

bool ParameterReader::isAvailable(const ParameterKey& key) const
{
    switch (key.kind) {
    case ParameterKind::ForceLimit:
        return m_options.forceSensing.value_or(false);
    case ParameterKind::PositionLimits: // over Modbus they are the calibration
        return target().adapter->protocolType() == PROTOCOL_TYPE_SERIALCTRL;
    default:
        return true;
    }
}

} // namespace vanto
