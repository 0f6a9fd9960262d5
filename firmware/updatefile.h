#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace vanto
{

// Update file (".upd"), text:
//
//   HW:1B,01          optional header: hardware type, hardware version
//   0102A5B6...       data line: the image, two hexadecimal digits per byte, up to the end of file
//
// Image: records one after the other, each
//
//   | length L, 2 bytes, big-endian | body, L bytes, meant for the boot loader alone |
//
// What can go wrong: without a good header the first line is the data line; a line break after the
// data, an odd number of digits or any other character damages the file; nothing says that the
// last record ends where the image does, or that a length field is left for it.

/// Takes a line of text for the user.
using LogCallback = std::function<void(const QString& text)>;

/// The hardware that an update file is made for.
struct UpdateHardware {
    quint8 type = 0;
    quint8 version = 0;
};

struct UpdateFile {
    std::optional<UpdateHardware> hardware; ///< none: the file has no header
    QByteArray image;                       ///< empty after a failure
    QString failure;                        ///< empty if the file is good
};

/// What a header line says; none if the line is no header. `HW:` is in capitals, the digits in
/// either case, blanks may stand before each value, and whatever follows the values is ignored.
std::optional<UpdateHardware> parseUpdateHeader(QByteArrayView line);

/// Reads an update file from its bytes. `log` is called once per byte of the image, a million
/// times for a large one, so it must be cheap: successive texts that are equal share their data.
/// It may process events; nobody else does so meanwhile.
UpdateFile readUpdateFile(QByteArrayView content, const LogCallback& log = {});

/// The same from a file. Files of more than 64 MiB are refused.
UpdateFile loadUpdateFile(const QString& path, const LogCallback& log = {});

/// The record that starts at `offset` of the image, its length field included; of one that the
/// image ends within, the bytes that there are.
QByteArrayView updateRecordAt(QByteArrayView image, qsizetype offset);

} // namespace vanto
