// The duration of a firmware update compared with its bytes on the line, and of reading the file.

#include "figures.h"
#include "handprocess.h"
#include "updatefirmware.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr double BaudRate = 115'200;
constexpr double BitsPerByte = 10; ///< start bit, eight data bits, stop bit
constexpr int Records = 128;
constexpr int RecordSize = 256; ///< bytes, length field included
constexpr int LengthFieldSize = 2;
constexpr int Transfers = 3;
constexpr double TransferBar = 1.05;

constexpr int MiB = 1024 * 1024;
constexpr int SmallImage = 4 * MiB;
constexpr int LargeImage = 32 * MiB; ///< of the largest file that is read
constexpr int Readings = 7;
constexpr double LargeImageMs = 5000; ///< acceptable time for it
constexpr double LargeImageBar = 1;
constexpr double LinearBar = 1.5; ///< quadratic growth would give 8
constexpr double MsPerNs = 1e-6;

/// The data line of an update file with records of the usual size.
QByteArray dataLine(int imageSize)
{
    const QByteArray length = QByteArray::number(RecordSize - LengthFieldSize, 16);
    const QByteArray body(qsizetype{RecordSize - LengthFieldSize} * 2, 'A');
    return (length.rightJustified(qsizetype{LengthFieldSize} * 2, '0') + body)
        .repeated(imageSize / RecordSize);
}

double elapsedMs(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) * MsPerNs;
}

/// Milliseconds from the first record to the last acknowledgment; negative if the update fails.
double transferMs(const QString& port, const QString& file)
{
    QElapsedTimer timer;
    const auto log = [&timer](const QString& text) {
        if (!timer.isValid() && text.startsWith(QLatin1String("Transferring")))
            timer.start();
        QCoreApplication::processEvents();
    };
    const QString failure = updateFirmware(port, QSerialPort::Baud115200, file, log, {});
    if (failure.isEmpty())
        return elapsedMs(timer);
    std::fprintf(stderr, "%s\n", qPrintable(failure));
    return -1;
}

bool measureTransfer()
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--baud"), QString::number(BaudRate),
                     QStringLiteral("--no-record-check")})) {
        std::fprintf(stderr, "%s\n", qPrintable(hand.errorText()));
        return false;
    }
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file.upd")));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write("HW:1B,01\n" + dataLine(Records * RecordSize)) < 0 || !file.flush())
        return false;
    std::vector<double> times;
    for (int i = 0; i < Transfers; ++i) {
        times.push_back(transferMs(hand.portName(), file.fileName()));
        if (times.back() < 0)
            return false;
    }
    constexpr double bothWays = Records * (RecordSize + 1);
    return report({"update, records of 256 bytes at 115200 baud", median(times), "ms",
                   bothWays * BitsPerByte * 1000 / BaudRate, TransferBar});
}

/// Milliseconds, with a callback that checks each call for a new text.
double readingMs(const QByteArray& content)
{
    QString shown;
    const auto log = [&shown](const QString& text) {
        if (text != shown)
            shown = text;
    };
    QElapsedTimer timer;
    timer.start();
    const UpdateFile file = readUpdateFile(content, log);
    const double ms = elapsedMs(timer);
    if (!file.failure.isEmpty())
        qFatal("%s", qPrintable(file.failure));
    return ms;
}

bool measureReading()
{
    const QByteArray small = dataLine(SmallImage);
    const QByteArray large = dataLine(LargeImage);
    std::vector<double> smallTimes;
    std::vector<double> largeTimes;
    for (int i = 0; i < Readings; ++i) {
        smallTimes.push_back(readingMs(small));
        largeTimes.push_back(readingMs(large));
    }
    constexpr double growth = double{LargeImage} / SmallImage;
    const double smallMs = median(smallTimes);
    const double largeMs = median(largeTimes);
    const bool quick =
        report({"update file of 64 MiB, read", largeMs, "ms", LargeImageMs, LargeImageBar});
    const bool linear =
        report({"the same, by a file of 8 MiB", largeMs, "ms", smallMs * growth, LinearBar});
    std::printf("     %.0f MB of file a second\n", 2e-3 * LargeImage / largeMs);
    return quick && linear;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    silenceLog();
    const QCoreApplication application(argc, argv);
    const bool read = measureReading();
    const bool written = measureTransfer();
    return read && written ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
