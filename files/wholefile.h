#pragma once

#include <QByteArray>
#include <QSaveFile>

namespace vanto
{

/// Writes all bytes to the open file and lets it take the place of the old one. Returns whether
/// that was done; otherwise the old file stays as it is, and error() of the file may be NoError.
inline bool writeWhole(QSaveFile& file, const QByteArray& bytes)
{
    // commit() does not notice that the last buffer could not be written, on a full disk for
    // example: it would replace the old file by a truncated one.
    return file.write(bytes) == bytes.size() && file.flush() && file.commit();
}

} // namespace vanto
