#pragma once

#include <QCoreApplication>
#include <QString>

#include <cstdint>

namespace Program
{
inline constexpr const char* Version = "V0.0-103-9fa94a8";

/// Bits per second of both device protocols and of the boot loader.
inline constexpr std::uint32_t BaudRate = 115200;

/// The program's name as the user reads it; also the title of every box.
inline QString title()
{
    return QCoreApplication::translate("Program", "VantoSetting");
}
} // namespace Program
