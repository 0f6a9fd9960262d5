#pragma once

#include "handcall.h"

#include <QString>

#include <optional>

namespace vanto
{

/// The parts of the calibration that need no dialog. The hand measures and stores the data itself;
/// the program sends the key that starts the calibration, the position of the thumb root and, as
/// the button count, the number of the prepared stage.
///
/// The order is: Prepare, the key, BeforeReboot, start(), AfterReboot, thumb root OnBase,
/// stage 1, TakeUp, stage 2, thumb root OffBase, stage 3, Finished.
namespace Calibration
{
constexpr int StageMs = 2000;               ///< time that the hand needs for a stage
constexpr std::uint16_t ThumbRootStep = 32; ///< absolute units
constexpr std::uint8_t ThumbRootSpeed = 255;

enum class Prompt { Prepare, Key, BeforeReboot, AfterReboot, OnBase, TakeUp, OffBase, Finished };

/// What the user is asked to do.
QString promptText(Prompt prompt);
QString invalidKeyText();

/// The key in a text of hexadecimal digits, of which the hand takes the low 16 bits.
std::optional<std::uint16_t> parseKey(const QString& text);

enum class Start {
    Failed,            ///< the failure has been reported
    Rebooting,         ///< into the calibrating state
    AlreadyCalibrating ///< the hand does not reboot
};
/// Sends the key.
Start start(HandCall& call, CallReport& report, std::uint16_t key);

/// Moves the thumb root; returns the result code.
std::uint8_t moveThumbRoot(HandCall& call, std::uint16_t position);
} // namespace Calibration

} // namespace vanto
