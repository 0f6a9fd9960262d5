#include "updatefile.h"

#include "fuzz.h"

#include <vector>

namespace vanto
{

namespace
{
void walkRecords(QByteArrayView image)
{
    // Of its exact size, so that reading past the end is noticed.
    const std::vector<char> exact(image.begin(), image.end());
    const QByteArrayView whole(exact.data(), image.size());
    qsizetype offset = 0;
    while (offset < whole.size()) {
        const QByteArrayView record = updateRecordAt(whole, offset);
        check(!record.isEmpty(), "a record that leads nowhere");
        check(record.toByteArray() == image.sliced(offset, record.size()), "bytes of no record");
        offset += record.size();
    }
    check(offset == whole.size(), "records that are longer than the image");
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
        check(file.image.isEmpty(), "an image in spite of a failure");
        return 0;
    }
    const QByteArray digits = file.image.toHex();
    check(!digits.isEmpty(), "neither an image nor a failure");
    check(content.toByteArray().toLower().endsWith(digits), "an image that is not in the file");
    check(file.hardware || content.size() == digits.size(), "an image that leaves out a part");
    check(texts == file.image.size() + (file.hardware ? 1 : 0), "a log of other than every byte");
    return 0;
}

} // namespace vanto
