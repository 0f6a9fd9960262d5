#include "recording.h"

#include "fuzz.h"

namespace vanto
{

namespace
{
/// Parses the bytes in pieces.
RecordingParser parsed(QByteArrayView bytes, bool exact, qsizetype pieceSize)
{
    RecordingParser parser(exact);
    while (!bytes.isEmpty() && parser.feed(bytes.first(std::min(pieceSize, bytes.size()))))
        bytes = bytes.sliced(std::min(pieceSize, bytes.size()));
    parser.finish();
    return parser;
}

void checkRecording(const Recording& recording)
{
    for (std::size_t row = 1; row < recording.rowCount(); ++row)
        check(recording.timeAt(row - 1) <= recording.timeAt(row), "the time goes back");
    constexpr int columns = 13;
    const std::int64_t end =
        recording.isEmpty() ? 1 : recording.timeAt(recording.rowCount() - 1) + 1;
    for (std::size_t channel = 0; channel < ChannelCount; ++channel) {
        for (const Extent& extent : recording.reduce(channel, 0, end, columns))
            check(extent.min <= extent.max, "an extent is reversed");
    }
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr qsizetype smallPiece = 7;
    const QByteArrayView content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    RecordingParser whole = parsed(content, true, content.size() + 1);
    RecordingParser pieces = parsed(content, false, smallPiece);
    check(whole.error() == pieces.error(), "the size of the pieces makes a difference");
    const Recording exact = whole.take();
    const Recording groups = pieces.take();
    check(exact.sampleCount() == groups.sampleCount(), "a sample is lost");
    check(exact.markers() == groups.markers(), "a marker is lost");
    checkRecording(exact);
    checkRecording(groups);
    return 0;
}

} // namespace vanto
