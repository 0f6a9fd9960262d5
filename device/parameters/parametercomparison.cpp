#include "parametercomparison.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <set>

namespace vanto
{

namespace
{
bool withinTolerance(const ParameterValue& one, const ParameterValue& other, double tolerance)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [=](double a, double b) { return std::abs(a - b) <= tolerance; });
}

ParameterRow::State compareValues(const ParameterRow& row, PROTOCOL_TYPE protocol,
                                  const ParameterTolerances& tolerances)
{
    using State = ParameterRow::State;
    if (!row.inFile)
        return State::OnlyInHand;
    if (!row.inHand)
        return State::OnlyInFile;
    if (ParameterValues::equal(row.key.kind, *row.inHand, *row.inFile, protocol))
        return State::Equal;
    const auto tolerance = tolerances.find(row.key.kind);
    if (tolerance != tolerances.end() &&
        withinTolerance(*row.inHand, *row.inFile, tolerance->second))
        return State::Equal;
    return ParameterValues::isRepresentable(row.key.kind, *row.inFile, protocol)
               ? State::Different
               : State::NotRepresentable;
}
} // namespace

QString ParameterRow::obstacle() const
{
    switch (state) {
    case State::OnlyInHand:
        return QCoreApplication::translate("Parameters", "The file does not have this value.");
    case State::OnlyInFile:
        return QCoreApplication::translate("Parameters", "The hand does not give this value.");
    case State::NotRepresentable:
        if (!isGain(key.kind))
            return QCoreApplication::translate("Parameters",
                                               "Not known: values range from 0 to %1.")
                .arg(describe(key.kind).maxKnown);
        return QCoreApplication::translate(
            "Parameters", "Not representable: over Modbus gains range from 0 to 655.35.");
    case State::Equal:
    case State::Different:
        break;
    }
    return {};
}

QList<ParameterRow> compareParameters(const ParameterSet& hand, const ParameterSet& file,
                                      const ParameterTolerances& tolerances)
{
    std::set<ParameterKey> keys;
    for (const ParameterSet* const set : {&hand, &file})
        for (const auto& entry : set->values)
            keys.insert(entry.first);
    const PROTOCOL_TYPE protocol = hand.hand.protocolType.value_or(PROTOCOL_TYPE_SERIALCTRL);
    const bool isOtherHand = calibrationRule(hand.hand, file.hand) == CalibrationRule::OtherHand;
    QList<ParameterRow> rows;
    for (const ParameterKey& key : keys) {
        ParameterRow row{key, hand.value(key), file.value(key)};
        row.state = compareValues(row, protocol, tolerances);
        row.isForOtherHand = isOtherHand && describe(key.kind).belongsToOneHand();
        rows.append(row);
    }
    return rows;
}

bool differs(const ParameterRow& row)
{
    return row.state != ParameterRow::State::Equal && row.state != ParameterRow::State::OnlyInHand;
}

QList<FactRow> compareFacts(const HandFacts& hand, const HandFacts& file)
{
    const auto named = [](const char* name) {
        return QCoreApplication::translate("Parameters", name);
    };
    const auto protocol = [](const HandFacts& facts) {
        return (facts.protocolName() + QLatin1Char(' ') + facts.protocolVersion()).trimmed();
    };
    return {
        {named(QT_TRANSLATE_NOOP("Parameters", "Node id")), hand.nodeText(), file.nodeText()},
        {named(QT_TRANSLATE_NOOP("Parameters", "Protocol")), protocol(hand), protocol(file)},
        {named(QT_TRANSLATE_NOOP("Parameters", "Firmware")), hand.firmwareText(),
         file.firmwareText()},
        {named(QT_TRANSLATE_NOOP("Parameters", "Hardware")), hand.hardwareText(),
         file.hardwareText()},
        {named(QT_TRANSLATE_NOOP("Parameters", "Boot loader")), hand.bootLoaderText(),
         file.bootLoaderText()},
        {named(QT_TRANSLATE_NOOP("Parameters", "UID")), hand.uidText(), file.uidText()},
    };
}

bool isOtherHardware(const HandFacts& hand, const HandFacts& file)
{
    return hand.hardware && file.hardware && hand.hardwareText() != file.hardwareText();
}

CalibrationRule calibrationRule(const HandFacts& hand, const HandFacts& file)
{
    if (hand.isUidUnreadable && file.uid)
        return CalibrationRule::OtherHand;
    if (!hand.uid || !file.uid)
        return CalibrationRule::UnknownHand;
    return *hand.uid == *file.uid ? CalibrationRule::SameHand : CalibrationRule::OtherHand;
}

} // namespace vanto
