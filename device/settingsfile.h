#pragma once

#include <QFileInfo>

namespace vanto
{

/// Whether QSettings may open a file: it is regular, or does not exist yet. Opening a pipe would
/// wait for a writer forever.
inline bool canBeSettingsFile(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() || !file.exists();
}

} // namespace vanto
