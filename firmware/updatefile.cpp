#include "updatefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr qint64 MaxFileSize = 64LL * 1024 * 1024; ///< bytes; a thousand times a real image
constexpr qsizetype DigitsPerByte = 2;
constexpr qsizetype LengthFieldSize = 2; ///< bytes
constexpr int InvalidDigit = -1;
constexpr int HexBase = 16;

constexpr int digitValue(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return InvalidDigit;
}

bool takeText(QByteArrayView& rest, QByteArrayView text)
{
    if (!rest.startsWith(text))
        return false;
    rest = rest.sliced(text.size());
    return true;
}

/// One or two hexadecimal digits after any blanks.
std::optional<std::uint8_t> takeValue(QByteArrayView& rest)
{
    constexpr QByteArrayView blanks(" \t\n\v\f\r");
    const auto* const start = std::ranges::find_if(
        rest, [&blanks](char character) { return !blanks.contains(character); });
    const auto* const limit = start + std::min<qsizetype>(DigitsPerByte, rest.end() - start);
    const auto* const end = std::find_if(
        start, limit, [](char character) { return digitValue(character) == InvalidDigit; });
    if (end == start)
        return std::nullopt;
    int value = 0;
    for (const auto* digit = start; digit != end; ++digit)
        value = value * HexBase + digitValue(*digit);
    rest = rest.sliced(end - rest.begin());
    return static_cast<std::uint8_t>(value);
}

/// Reports the progress in the data line; creates a text only if the percentage has changed.
class ProcessingLog
{
public:
    ProcessingLog(const LogCallback& log, qint64 lineLength) : m_log(log), m_lineLength(lineLength)
    {
    }

    void report(qint64 bytesDone)
    {
        if (!m_log)
            return;
        const qint64 percent = 100 * DigitsPerByte * bytesDone / m_lineLength;
        if (percent != m_percent)
            m_text = QCoreApplication::translate("UpdateFile", "Processing update file - %1%...")
                         .arg(percent);
        m_percent = percent;
        m_log(m_text);
    }

private:
    const LogCallback& m_log;
    qint64 m_lineLength;
    qint64 m_percent = -1;
    QString m_text;
};

QByteArrayView lineAt(QByteArrayView content)
{
    const qsizetype lineBreak = content.indexOf('\n');
    return lineBreak < 0 ? content : content.first(lineBreak + 1);
}

/// Returns nothing unless the line consists of pairs of digits.
std::optional<QByteArray> parseImage(QByteArrayView line, const LogCallback& log)
{
    ProcessingLog processing(log, line.size());
    QByteArray image;
    image.reserve(line.size() / DigitsPerByte);
    for (; !line.isEmpty(); line = line.sliced(DigitsPerByte)) {
        const int high = digitValue(line.front());
        const int low = line.size() < DigitsPerByte ? InvalidDigit : digitValue(line[1]);
        if (high == InvalidDigit || low == InvalidDigit)
            return std::nullopt;
        image.append(static_cast<char>(high * HexBase + low));
        processing.report(image.size());
    }
    return image;
}

void logHardware(const UpdateHardware& hardware, const LogCallback& log)
{
    const auto hex = [](std::uint8_t value) {
        return QString::number(value, HexBase).toUpper().rightJustified(DigitsPerByte, u'0');
    };
    if (log)
        log(QCoreApplication::translate("UpdateFile", "Hardware type: 0x%1, ver: 0x%2")
                .arg(hex(hardware.type), hex(hardware.version)));
}
} // namespace

std::optional<UpdateHardware> parseUpdateHeader(QByteArrayView line)
{
    if (!takeText(line, "HW:"))
        return std::nullopt;
    const std::optional<std::uint8_t> type = takeValue(line);
    if (!type || !takeText(line, ","))
        return std::nullopt;
    const std::optional<std::uint8_t> version = takeValue(line);
    return version ? std::optional(UpdateHardware{*type, *version}) : std::nullopt;
}

UpdateFile readUpdateFile(QByteArrayView content, const LogCallback& log)
{
    UpdateFile file;
    QByteArrayView line = lineAt(content);
    file.hardware = parseUpdateHeader(line);
    if (file.hardware) {
        logHardware(*file.hardware, log);
        line = lineAt(content.sliced(line.size()));
    }
    if (line.isEmpty()) {
        file.failure = QCoreApplication::translate("UpdateFile", "Invalid update file.");
        return file;
    }
    const std::optional<QByteArray> image = parseImage(line, log);
    if (image)
        file.image = *image;
    else
        file.failure = QCoreApplication::translate("UpdateFile", "File damaged.");
    return file;
}

UpdateFile loadUpdateFile(const QString& path, const LogCallback& log)
{
    UpdateFile file;
    QFile source(path);
    // A device or a pipe could block forever. Text mode would drop carriage returns and so hide
    // errors in the file.
    if (!QFileInfo(path).isFile() || !source.open(QIODevice::ReadOnly)) {
        file.failure =
            QCoreApplication::translate("UpdateFile", "Open file '%1' failed.").arg(path);
        return file;
    }
    const QByteArray content = source.read(MaxFileSize + 1);
    source.close();
    if (content.size() > MaxFileSize) {
        file.failure = QCoreApplication::translate("UpdateFile", "Invalid update file.");
        return file;
    }
    return readUpdateFile(content, log);
}

QByteArrayView updateRecordAt(QByteArrayView image, qsizetype offset)
{
    const QByteArrayView rest = image.sliced(offset);
    if (rest.size() < LengthFieldSize)
        return rest;
    const qsizetype length =
        static_cast<std::uint8_t>(rest[0]) * 0x100 + static_cast<std::uint8_t>(rest[1]);
    return rest.first(std::min(rest.size(), LengthFieldSize + length));
}

} // namespace vanto
