#include "parameterset.h"

#include <QCoreApplication>

namespace vanto
{

namespace
{
constexpr int HexBase = 16;
constexpr QLatin1Char HexFill('0');
constexpr std::uint8_t FirstRefusal = 0x10;

template<class Number>
QString hexadecimal(Number number, int digits)
{
    return QStringLiteral("%1").arg(number, digits, HexBase, HexFill).toUpper();
}

QString joinedVersion(unsigned major, unsigned minor)
{
    return QStringLiteral("%1.%2").arg(major).arg(minor);
}
} // namespace

QString HandFacts::nodeText() const
{
    return node ? QString::number(*node) : QString();
}

QString HandFacts::protocolName() const
{
    if (!protocolType)
        return {};
    return *protocolType == PROTOCOL_TYPE_SERIALCTRL ? QStringLiteral("SerialCtrl")
                                                     : QStringLiteral("ModBus-RTU");
}

QString HandFacts::protocolVersion() const
{
    return protocol ? joinedVersion(protocol->major, protocol->minor) : QString();
}

QString HandFacts::firmwareText() const
{
    return firmware ? joinedVersion(firmware->major, firmware->minor) +
                          QStringLiteral(".%1").arg(firmware->revision)
                    : QString();
}

QString HandFacts::hardwareText() const
{
    return hardware ? hardware->text() : QString();
}

QString HandFacts::bootLoaderText() const
{
    return hardware && hardware->bootLoader != 0
               ? joinedVersion(hardware->bootLoader >> 8U, hardware->bootLoader & 0xFFU)
               : QString();
}

QString HandFacts::uidText() const
{
    QString text;
    if (uid)
        for (const std::uint32_t word : *uid)
            text += hexadecimal(word, 8);
    return text;
}

bool isDamagedReply(std::uint8_t result)
{
    return result != ResultCode::Success && result != ResultCode::Timeout && result < FirstRefusal;
}

QString hexCode(unsigned code)
{
    return QStringLiteral("0x%1").arg(code, 2, HexBase, HexFill);
}

QString RefusedParameter::text() const
{
    if (result == ResultCode::Success)
        return QCoreApplication::translate("Parameters", "%1: not a number").arg(key.displayName());
    if (result == ResultCode::Timeout)
        return QCoreApplication::translate("Parameters", "%1: no answer").arg(key.displayName());
    if (isDamagedReply(result))
        return QCoreApplication::translate("Parameters", "%1: no valid answer (result %2)")
            .arg(key.displayName(), hexCode(result));
    return QCoreApplication::translate("Parameters", "%1: refused (result %2, sub error %3)")
        .arg(key.displayName(), hexCode(result), hexCode(subError));
}

std::optional<ParameterValue> ParameterSet::value(const ParameterKey& key) const
{
    const auto found = values.find(key);
    return found != values.end() ? std::optional(found->second) : std::nullopt;
}

void ParameterSet::copyGains(std::uint8_t from, std::uint8_t to)
{
    for (std::size_t gain = 0; gain < GainKinds; ++gain) {
        const auto kind = static_cast<ParameterKind>(gain);
        if (const auto copied = value({kind, from}))
            values[{kind, to}] = *copied;
    }
}

HandIdentity::Calibration toCalibration(const ParameterValue& value)
{
    HandIdentity::Calibration calibration;
    auto number = value.begin();
    const auto take = [&](auto& positions) {
        for (std::uint16_t& position : positions)
            if (number != value.end())
                position = static_cast<std::uint16_t>(*number++);
    };
    take(calibration.starts);
    take(calibration.ends);
    take(calibration.thumbRoots);
    return calibration;
}

ParameterValue fromCalibration(const HandIdentity::Calibration& calibration)
{
    ParameterValue value;
    value.append({calibration.starts.begin(), calibration.starts.end()});
    value.append({calibration.ends.begin(), calibration.ends.end()});
    value.append({calibration.thumbRoots.begin(), calibration.thumbRoots.end()});
    return value;
}

} // namespace vanto
