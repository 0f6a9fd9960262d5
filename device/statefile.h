#pragma once

#include <QStandardPaths>
#include <QString>

namespace vanto
{

/// The file for what the program remembers between two starts, in the user's configuration folder.
inline QString stateFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
           QStringLiteral("/state.ini");
}

} // namespace vanto
