#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace vanto
{

// Version file ("latest_version.json"), which says what a firmware server has for one kind of
// hardware:
//
//   {"TYPE": {"version": "1.2.3", "file": "NAME.upd", "desc": "..."}, ...}
//
// What can go wrong: no JSON; JSON that is no object; members that are missing or no texts, which
// are then empty; names of files that lead out of the folder that they are put into.

/// A version of firmware that the server offers.
struct FirmwareRelease {
    QString version;
    QString file; ///< its name on the server, not to be trusted
    QString description;

    bool operator==(const FirmwareRelease&) const = default;
};

/// What a version file offers, by type of firmware; nothing if it cannot be read.
QMap<QString, FirmwareRelease> readVersionFile(const QByteArray& content);

/// Whether a text names a file of the folder that it is put into, and nothing elsewhere.
bool isPlainFileName(const QString& name);

} // namespace vanto
