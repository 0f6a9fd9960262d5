#pragma once

#include "parameterset.h"

#include <QByteArray>

namespace vanto
{

/// The file form of parameters, a JSON document; docs/parameter-file.md describes it.
///
/// A file need not have all parameters. Everything that it has must be valid: an unknown key, a
/// number out of range or a text in place of a number is an error, so that a misspelled name is not
/// silently left out. If a key is there twice, the last one counts.
namespace ParameterFile
{
constexpr QLatin1String Kind("hand parameters");
constexpr int SchemaVersion = 1;
constexpr qint64 MaxSize = qint64{1024} * 1024; ///< bytes

struct Content {
    ParameterSet parameters;
    QString error; ///< for the user; empty if the parameters are valid

    bool isValid() const { return error.isEmpty(); }
};

/// The error names the key ("fingers.thumb.P: ...") or line and offset. Pure.
Content parse(const QByteArray& bytes);
/// UTF-8, indented, with a line feed at its end. Values are written in a fixed order. Pure.
QByteArray format(const ParameterSet& parameters);

/// Reads a regular file of at most MaxSize; anything else, a FIFO for example, is an error.
Content read(const QString& path);
/// Writes the file as a whole or not at all; what was there before is kept on failure. Returns an
/// error for the user, empty on success.
QString write(const QString& path, const ParameterSet& parameters);
/// The same for other content.
QString writeBytes(const QString& path, const QByteArray& bytes);
} // namespace ParameterFile

} // namespace vanto
