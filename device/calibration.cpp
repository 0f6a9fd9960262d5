#include "calibration.h"

#include "fingers.h"

#include <QCoreApplication>

namespace vanto
{

namespace
{
/// Result or sub error of a hand that is already calibrating.
constexpr std::uint8_t AlreadyCalibratingCode = 0x22;
constexpr int KeyBase = 16;

/// The context of the texts, which the dialogs of the calibration show.
struct CalibrationText {
    Q_DECLARE_TR_FUNCTIONS(CalibrationProcedure)
};
} // namespace

QString Calibration::promptText(Prompt prompt)
{
    switch (prompt) {
    case Prompt::Prepare:
        return CalibrationText::tr("Prepare calibration base and take Vanto up then power on,\n"
                                   "presss OK when Vanto is ready.");
    case Prompt::Key:
        return CalibrationText::tr("Please input calibration key:");
    case Prompt::BeforeReboot:
        return CalibrationText::tr("Vanto will reboot if not in calibrating state & calibration "
                                   "key is correct,\npress OK when ready");
    case Prompt::AfterReboot:
        return CalibrationText::tr("Wait for Vanto reboots and beeps 8 times,\n"
                                   "press OK when beep finished");
    case Prompt::OnBase:
        return CalibrationText::tr("Put Vanto onto calibration base & push it tightly, move "
                                   "thumb root to right pos, press OK when ready");
    case Prompt::TakeUp:
        return CalibrationText::tr("Take Vanto up,\npress OK when ready");
    case Prompt::OffBase:
        return CalibrationText::tr("Move thumb root to right position,\npress OK when ready");
    case Prompt::Finished:
        return CalibrationText::tr("Calibration finished, you may power off and power on the Vanto "
                                   "now to see the result");
    }
    return {};
}

QString Calibration::invalidKeyText()
{
    return CalibrationText::tr("Invalid calibration key");
}

std::optional<std::uint16_t> Calibration::parseKey(const QString& text)
{
    bool valid = false;
    const auto key = static_cast<std::uint16_t>(text.toUInt(&valid, KeyBase));
    return valid ? std::optional(key) : std::nullopt;
}

Calibration::Start Calibration::start(HandCall& call, CallReport& report, std::uint16_t key)
{
    const std::uint8_t result = call.attempt<&VantoProtocol::calibrate>(key);
    if (result == AlreadyCalibratingCode)
        return Start::AlreadyCalibrating;
    if (result == ResultCode::Success || result == ResultCode::Timeout || call.wasRefused())
        return call.accept<&VantoProtocol::calibrate>(result) ? Start::Rebooting : Start::Failed;
    if (!call.isCurrent())
        return Start::Failed;
    const std::uint8_t subError = call.subError();
    if (subError == AlreadyCalibratingCode)
        return Start::AlreadyCalibrating;
    if (call.isCurrent())
        report.reportFailure(call.target(), operationName<&VantoProtocol::calibrate>(), result,
                             subError);
    return Start::Failed;
}

std::uint8_t Calibration::moveThumbRoot(HandCall& call, std::uint16_t position)
{
    return call.attempt<&VantoProtocol::setFingerPosAbs>(std::uint8_t{ThumbRoot}, position,
                                                         ThumbRootSpeed);
}

} // namespace vanto
