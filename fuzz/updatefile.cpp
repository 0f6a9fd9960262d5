#include "updatefile.h"

#include "fuzz.h"

#include <vector>

namespace vanto
{

namespace
{
void walkRecords(QByteArrayView image)
{
    // Of the exact size, so that sanitizers detect reads past the end.
    const std::vector<char> exact(image.begin(), image.end());
    const QByteArrayView whole(exact.data(), image.size());
    qsizetype offset = 0;
    while (offset < whole.size()) {
        const QByteArrayView record = updateRecordAt(whole, offset);
        check(!record.isEmpty(), "a record is empty");
        check(record.toByteArray() == image.sliced(offset, record.size()), "wrong record bytes");
        offset += record.size();
    }
    check(offset == whole.size(), "the records are longer than the image");
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView content(data, static_cast<qsizetype>(size));
    walkRecords(content);
    qsizetype texts = 0;
    const UpdateFile file = readUpdateFile(content, [&texts](const QString&) { ++texts; });
    walkRecords(file.image);
    if (!file.failure.isEmpty()) {
        check(file.image.isEmpty(), "an image despite a failure");
        return 0;
    }
    const QByteArray digits = file.image.toHex();
    check(!digits.isEmpty(), "neither an image nor a failure");
    check(content.toByteArray().toLower().endsWith(digits), "the image is not in the file");
    check(file.hardware || content.size() == digits.size(), "the image is incomplete");
    check(texts == file.image.size() + (file.hardware ? 1 : 0), "a log without every byte");
    return 0;
}

} // namespace vanto
