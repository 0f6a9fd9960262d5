#pragma once

#include <QCoreApplication>
#include <QString>

namespace vanto
{

namespace Program
{
inline constexpr const char* Version = "V0.0-103-9fa94a8";

/// The program's name as shown to the user; also the title of message boxes.
inline QString title()
{
    return QCoreApplication::translate("Program", "VantoSetting");
}
/// Name and version, for files.
inline QString nameAndVersion()
{
    return QStringLiteral("VantoSetting ") + QLatin1String(Version);
}
} // namespace Program

} // namespace vanto
