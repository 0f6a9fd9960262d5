#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace vanto
{

// Update file (".upd"), text:
//
//   HW:1B,01          optional header: hardware type, hardware version
//   0102A5B6...       data line: the image, two hexadecimal digits per byte, up to the end of file
//
// Image: consecutive records, each
//
//   | length L, 2 bytes, big-endian | body, L bytes, for the boot loader only |
//
// Possible errors: without a valid header the first line is the data line; a line break after the
// data, an odd number of digits or any other character damages the file; the image may end within
// the last record or its length field.

/// Receives a line of text for the user.
using LogCallback = std::function<void(const QString& text)>;

/// The hardware that an update file is made for.
struct UpdateHardware {
    std::uint8_t type = 0;
    std::uint8_t version = 0;
};

struct UpdateFile {
    std::optional<UpdateHardware> hardware; ///< not set: the file has no header
    QByteArray image;                       ///< empty after a failure
    QString failure;                        ///< empty if the file is good
};

/// Parses a header line; returns nothing if the line is not a header. `HW:` is upper case, the
/// digits are of either case, blanks may precede each value, and anything after the values is
/// ignored.
std::optional<UpdateHardware> parseUpdateHeader(QByteArrayView line);

/// Reads an update file from its bytes. `log` is called once per byte of the image, a million times
/// for a large one, so it must be cheap: successive texts that are equal share their data. Only
/// `log` may process events meanwhile.
UpdateFile readUpdateFile(QByteArrayView content, const LogCallback& log = {});

/// Reads an update file from disk. Files of more than 64 MiB are refused.
UpdateFile loadUpdateFile(const QString& path, const LogCallback& log = {});

/// The record at `offset` of the image, including its length field; cut off where the image ends.
QByteArrayView updateRecordAt(QByteArrayView image, qsizetype offset);

} // namespace vanto
