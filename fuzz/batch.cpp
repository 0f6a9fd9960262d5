#include "batchline.h"
#include "lineinput.h"

#include "fuzz.h"

namespace vanto
{

namespace
{
void checkLine(QByteArrayView text)
{
    const BatchLine line = parseBatchLine(text);
    check(!line.command || line.error.isEmpty(), "a wrong line has a command");
    check(!line.command || line.node, "a command has no node");
    if (!line.command)
        return;
    check(line.command->inBatch, "the command is not one of batch");
    for (auto option = line.arguments.options.begin(); option != line.arguments.options.end();
         ++option)
        check(option.key() != QLatin1String("--wait"), "the command waits");
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    QList<LineSplitter::Line> whole;
    {
        LineSplitter splitter;
        whole = splitter.feed(bytes);
        whole += splitter.finish();
    }
    LineSplitter splitter;
    QList<LineSplitter::Line> pieces;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        pieces += splitter.feed(bytes.sliced(i, 1));
    pieces += splitter.finish();
    check(whole.size() == pieces.size(), "the lines depend on how the bytes arrive");
    for (qsizetype i = 0; i < whole.size(); ++i) {
        check(whole[i].text == pieces[i].text && whole[i].isTooLong == pieces[i].isTooLong,
              "a line depends on how the bytes arrive");
        check(whole[i].text.size() <= LineSplitter::MaxLength, "a line is too long");
        checkLine(whole[i].text);
    }
    return 0;
}

} // namespace vanto
