#include "parameterwriter.h"

#include "deviceentry.h"
#include "parameterexchange.h"

#include <QCoreApplication>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr int MaxChecks = 3;   ///< of a hand that refuses to say what it is
constexpr int MaxFailures = 3; ///< time-outs and damaged replies of one read
} // namespace

QString WrittenParameter::text() const
{
    const auto translated = [](const char* english) {
        return QCoreApplication::translate("Parameters", english);
    };
    switch (result) {
    case Result::NotTried:
        break;
    case Result::Written:
        return translated(QT_TRANSLATE_NOOP("Parameters", "written"));
    case Result::Refused:
        return translated(QT_TRANSLATE_NOOP("Parameters", "refused (result %1, sub error %2)"))
            .arg(hexCode(code), hexCode(subError));
    case Result::NotKept:
        return readBack ? translated(QT_TRANSLATE_NOOP("Parameters", "not kept (%1)"))
                              .arg(ParameterValues::text(key.kind, *readBack))
                        : translated(QT_TRANSLATE_NOOP("Parameters", "not kept"));
    case Result::NoAnswer:
        return translated(
            isUncertain() && key.kind == ParameterKind::Calibration
                ? QT_TRANSLATE_NOOP("Parameters", "no answer, the hand may have a part of it")
                : QT_TRANSLATE_NOOP("Parameters", "no answer"));
    }
    return {};
}

bool ParameterWriter::isAnyNode(const HandTarget& target)
{
    return target.node == AnyNode && target.adapter->protocolType() == PROTOCOL_TYPE_SERIALCTRL;
}

ParameterWriter::ParameterWriter(HandTarget target, const ParameterSet& hand,
                                 const ParameterSet& wanted, const QList<ParameterKey>& chosen,
                                 Options options)
    : HandTask(std::move(target), options.timeoutsInARow),
      m_facts(hand.hand),
      m_rule(calibrationRule(hand.hand, wanted.hand)),
      m_wanted(wanted.values),
      m_options(options)
{
    if (const auto calibration = hand.value({ParameterKind::Calibration}))
        m_known = m_expected = *calibration;
    for (const auto& entry : hand.values)
        if (entry.first.kind == ParameterKind::PositionLimits)
            m_knownLimits.append(entry.first);
    QList<ParameterKey> sorted = chosen;
    std::ranges::sort(sorted);
    for (const ParameterKey& key : std::as_const(sorted)) {
        m_results.append(WrittenParameter{key});
        if (canWrite(key))
            addWrite(key, m_results.size() - 1);
    }
    if (isAnyNode(this->target()) && !m_options.anyNode)
        finish(Outcome::AnyNode);
    else if (m_writes.empty())
        finish(Outcome::Completed);
}

bool ParameterWriter::canWrite(const ParameterKey& key) const
{
    const auto wanted = m_wanted.find(key);
    if (wanted == m_wanted.end() || !describe(key.kind).check(wanted->second).isEmpty())
        return false;
    if (describe(key.kind).belongsToOneHand() && m_rule == CalibrationRule::OtherHand)
        return false;
    if (key.kind == ParameterKind::Calibration)
        return m_options.writeCalibration;
    if (key.kind == ParameterKind::PositionLimits)
        return m_rule == CalibrationRule::SameHand || m_options.writeUnknownLimits;
    return ParameterValues::isRepresentable(key.kind, wanted->second,
                                            target().adapter->protocolType());
}

void ParameterWriter::addWrite(const ParameterKey& key, qsizetype result)
{
    const auto sameGains = std::ranges::find_if(m_writes, [&key](const Write& write) {
        return isGain(key.kind) && isGain(write.key.kind) && write.key.finger == key.finger;
    });
    if (sameGains != m_writes.end())
        sameGains->results.append(result);
    else
        m_writes.push_back({key, {result}});
}

int ParameterWriter::stepCount() const
{
    return 1 + static_cast<int>(m_writes.size());
}

int ParameterWriter::count(WrittenParameter::Result result) const
{
    return static_cast<int>(std::ranges::count(m_results, result, &WrittenParameter::result));
}

void ParameterWriter::perform(int step)
{
    HandCall call(target());
    if (step == 0)
        checkHand(call);
    else if (isGain(m_writes[static_cast<std::size_t>(step - 1)].key.kind))
        writeGains(call, m_writes[static_cast<std::size_t>(step - 1)]);
    else
        writeOther(call, m_writes[static_cast<std::size_t>(step - 1)]);
}

/// Returns whether the hand is the one that was read; otherwise the task has ended.
bool ParameterWriter::checkHand(HandCall& call)
{
    const HandIdentity known{m_facts.firmware, m_facts.protocol, m_facts.hardware, {}};
    for (int check = 0; isRunning() && check < MaxChecks; ++check) {
        const auto identity = HandIdentity::read(call);
        if (!note(call, identity ? ResultCode::Success : ResultCode::Timeout))
            return false;
        if (!identity)
            continue;
        if (!known.matches(*identity) || !isKnown(identity->calibration))
            break;
        const bool isComplete = identity->covers(known) && (identity->calibration || !m_known);
        if (isComplete && hasKnownUid(call))
            return isRunning();
    }
    finish(Outcome::OtherHand);
    return false;
}

bool ParameterWriter::hasKnownUid(HandCall& call)
{
    if (!m_facts.uid)
        return true;
    HandFacts::Uid uid{};
    const std::uint8_t result = call.attempt<&VantoProtocol::getUID>(&uid[0], &uid[1], &uid[2]);
    return note(call, result) && result == ResultCode::Success && uid == *m_facts.uid;
}

/// Each position may be the one before or after the present write. The stored positions of the
/// thumb root are relative to its range, so they are known only while that is the old one.
bool ParameterWriter::isKnown(const std::optional<HandIdentity::Calibration>& calibration) const
{
    if (!calibration || !m_known)
        return true;
    const ParameterValue now = fromCalibration(*calibration);
    constexpr qsizetype Start = ThumbRoot;
    constexpr qsizetype End = ThumbRoot + FingerCount;
    const bool hasOldRange = now[Start] == m_known->value(Start) && now[End] == m_known->value(End);
    const qsizetype count = now.size() - (hasOldRange ? 0 : qsizetype{ThumbRootCount});
    for (qsizetype i = 0; i < count; ++i)
        if (now[i] != m_known->value(i) && now[i] != m_expected.value(i))
            return false;
    return true;
}

bool ParameterWriter::isSameHand(const ParameterSet& now) const
{
    const auto calibration = now.value({ParameterKind::Calibration});
    return calibration && now.hand.firmware == m_facts.firmware &&
           now.hand.protocol == m_facts.protocol && now.hand.hardware == m_facts.hardware &&
           now.hand.uid == m_facts.uid && isKnown(toCalibration(*calibration));
}

/// Before a write that changes by what the hand is recognized. A hand may keep position limits and
/// calibration in the same place.
void ParameterWriter::expectChange(const ParameterKey& key)
{
    const ParameterValue& wanted = m_wanted.at(key);
    if (key.kind == ParameterKind::Calibration) {
        m_expected = wanted;
    } else if (key.kind == ParameterKind::PositionLimits && m_known) {
        m_expected[*key.finger] = wanted[0];
        m_expected[static_cast<qsizetype>(FingerCount) + *key.finger] = wanted[1];
    }
}

void ParameterWriter::keepCalibration(const ParameterValue& value)
{
    m_known = m_expected = value;
    m_calibration = toCalibration(value);
}

/// Reads until the hand gives a valid answer or the task ends; the hand is checked after a
/// time-out. Sends nothing after the end of the task.
template<class Read>
std::uint8_t ParameterWriter::readPatiently(HandCall& call, Read read)
{
    if (!isRunning())
        return ResultCode::Timeout;
    std::uint8_t result = read();
    int failures = 0;
    while (note(call, result)) {
        const bool isLate = result == ResultCode::Timeout;
        if ((!isLate && !isDamagedReply(result)) || (isLate && !checkHand(call)) ||
            ++failures >= MaxFailures)
            break;
        result = read();
    }
    return result;
}

/// Gains that are not chosen keep their values: one command carries all four.
void ParameterWriter::writeGains(HandCall& call, const Write& job)
{
    const std::uint8_t finger = *job.key.finger;
    ParameterExchange::Gains gains{};
    const auto read = [&] { return ParameterExchange::readGains(call, finger, gains); };
    if (job.results.size() < static_cast<qsizetype>(GainKinds)) {
        const std::uint8_t result = readPatiently(call, read);
        if (result != ResultCode::Success) {
            if (isRunning())
                refuse(job, result, call.subError());
            return;
        }
    }
    for (const qsizetype index : job.results) {
        const ParameterKey& key = m_results[index].key;
        gains.at(static_cast<std::size_t>(key.kind)) = static_cast<float>(m_wanted.at(key).first());
    }
    if (!call.isCurrent())
        return;
    if (!noteWrite(call, job, ParameterExchange::writeGains(call, finger, gains)) ||
        readPatiently(call, read) != ResultCode::Success)
        return;
    for (const qsizetype index : job.results)
        judge(m_results[index],
              {double{gains.at(static_cast<std::size_t>(m_results[index].key.kind))}});
}

void ParameterWriter::writeOther(HandCall& call, const Write& job)
{
    WrittenParameter& result = m_results[job.results.first()];
    if (!call.isCurrent())
        return;
    expectChange(job.key);
    const std::uint8_t code = ParameterExchange::write(call, job.key, m_wanted.at(job.key));
    ParameterValue value;
    if (!noteWrite(call, job, code) || readPatiently(call, [&] {
                                           return ParameterExchange::read(call, job.key, value);
                                       }) != ResultCode::Success)
        return;
    judge(result, value);
    if (job.key.kind == ParameterKind::Calibration) {
        keepCalibration(value);
        readLimits(call);
    } else if (job.key.kind == ParameterKind::PositionLimits) {
        readCalibration(call);
    }
}

/// A calibration may have replaced limits that were written before.
void ParameterWriter::readLimits(HandCall& call)
{
    for (const ParameterKey& key : std::as_const(m_knownLimits)) {
        ParameterValue value;
        if (readPatiently(call, [&] { return ParameterExchange::read(call, key, value); }) !=
            ResultCode::Success)
            continue;
        m_limits[key] = value;
        const auto written = std::ranges::find(m_results, key, &WrittenParameter::key);
        if (written != m_results.end() && written->readBack)
            judge(*written, value);
    }
}

void ParameterWriter::readCalibration(HandCall& call)
{
    ParameterValue value;
    if (readPatiently(call, [&] {
            return ParameterExchange::read(call, {ParameterKind::Calibration}, value);
        }) == ResultCode::Success)
        keepCalibration(value);
}

/// Marks the parameters of a write by its result. Returns whether they are to be read back.
bool ParameterWriter::noteWrite(HandCall& call, const Write& job, std::uint8_t result)
{
    const bool goesOn = note(call, result);
    if (result == ResultCode::Success)
        mark(job, WrittenParameter::Result::NotKept, result, 0); // until it has been read back
    else if (result == ResultCode::Timeout || isDamagedReply(result) || !goesOn)
        mark(job, WrittenParameter::Result::NoAnswer, result, 0);
    else
        refuse(job, result, call.subError());
    // After a time-out another hand may answer.
    return goesOn && (result != ResultCode::Timeout || checkHand(call));
}

void ParameterWriter::refuse(const Write& job, std::uint8_t code, std::uint8_t subError)
{
    mark(job, WrittenParameter::Result::Refused, code, subError);
}

void ParameterWriter::mark(const Write& job, WrittenParameter::Result result, std::uint8_t code,
                           std::uint8_t subError)
{
    for (const qsizetype index : job.results) {
        m_results[index].result = result;
        m_results[index].code = code;
        m_results[index].subError = subError;
    }
}

/// Decides by what was read back.
void ParameterWriter::judge(WrittenParameter& written, const ParameterValue& value)
{
    using Result = WrittenParameter::Result;
    written.readBack = value;
    const bool kept = ParameterValues::equal(written.key.kind, m_wanted.at(written.key), value,
                                             target().adapter->protocolType());
    if (kept)
        written.result = Result::Written;
    else if (written.result != Result::Refused)
        written.result = Result::NotKept;
}

} // namespace vanto
