#include "handidentity.h"

#include <QCoreApplication>

namespace vanto
{

namespace
{
template<class Part>
bool agree(const std::optional<Part>& one, const std::optional<Part>& other)
{
    return !one || !other || *one == *other;
}
} // namespace

QString HandIdentity::Hardware::text() const
{
    return QStringLiteral("%1%2")
        .arg(type, 2, 16, QLatin1Char('0'))
        .arg(version, 2, 16, QLatin1Char('0'))
        .toUpper();
}

std::optional<HandIdentity> HandIdentity::read(HandCall& call)
{
    HandIdentity identity;
    bool answers = true;
    const auto keep = [&](std::uint8_t result, auto& part, const auto& value) {
        if (result == ResultCode::Success)
            part = value;
        answers = answers && call.isCurrent() && result != ResultCode::Timeout;
        return answers;
    };
    Firmware f;
    Protocol p;
    Hardware h;
    Calibration c;
    const bool complete =
        keep(call.attempt<&VantoProtocol::getFirmwareVersion>(&f.major, &f.minor, &f.revision),
             identity.firmware, f) &&
        keep(call.attempt<&VantoProtocol::getProtocolVersion>(&p.major, &p.minor),
             identity.protocol, p) &&
        keep(call.attempt<&VantoProtocol::getHardwareVersion>(&h.type, &h.version, &h.bootLoader),
             identity.hardware, h) &&
        keep(call.attempt<&VantoProtocol::getCaliData>(
                 c.ends.data(), c.starts.data(), std::uint8_t{FingerCount}, c.thumbRoots.data(),
                 std::uint8_t{ThumbRootCount}),
             identity.calibration, c);
    return complete ? std::optional(identity) : std::nullopt;
}

bool HandIdentity::covers(const HandIdentity& known) const
{
    return (firmware || !known.firmware) && (protocol || !known.protocol) &&
           (hardware || !known.hardware) && (calibration || !known.calibration);
}

bool HandIdentity::matches(const HandIdentity& other) const
{
    return agree(firmware, other.firmware) && agree(protocol, other.protocol) &&
           agree(hardware, other.hardware) && agree(calibration, other.calibration);
}

QString HandIdentity::text() const
{
    QStringList parts;
    if (firmware)
        parts.append(QCoreApplication::translate("HandIdentity", "firmware V%1.%2.%3")
                         .arg(firmware->major)
                         .arg(firmware->minor)
                         .arg(firmware->revision));
    if (hardware)
        parts.append(
            QCoreApplication::translate("HandIdentity", "hardware %1").arg(hardware->text()));
    return parts.join(QStringLiteral(", "));
}

} // namespace vanto
