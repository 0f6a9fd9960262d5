#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace vanto
{

// Version file ("latest_version.json"), the releases that a firmware server has for one kind of
// hardware:
//
//   {"TYPE": {"version": "1.2.3", "file": "NAME.upd", "desc": "..."}, ...}
//
// Possible errors: not JSON; JSON that is not an object; more types than a user could choose from;
// members that are missing or not strings, which count as empty; file names that lead out of their
// folder.

inline constexpr qsizetype MaxVersionFileSize = qsizetype{1024} * 1024; ///< bytes
inline constexpr qsizetype MaxFirmwareTypes = 1000;

/// A firmware version that the server offers.
struct FirmwareRelease {
    QString version;
    QString file; ///< name on the server, untrusted
    QString description;

    bool operator==(const FirmwareRelease&) const = default;
};

/// The releases in a version file, by type of firmware; empty if it cannot be read, or exceeds one
/// of the limits above.
QMap<QString, FirmwareRelease> readVersionFile(const QByteArray& content);

/// Whether `name` is a file name without a path, which cannot refer to another folder.
bool isPlainFileName(const QString& name);

} // namespace vanto
