#include "fuzz.h"

#include <QDir>
#include <QFile>

#include <vector>

namespace vanto
{

// usage: replay_TARGET FOLDER...
// Tests each file of the folders once. A finding ends the process after the name of its file.

namespace
{
bool replay(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "Cannot read %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
    const QByteArray content = file.readAll();
    // On the heap and without a terminating zero, so that sanitizers detect reads past the end.
    const std::vector<std::uint8_t> input(content.begin(), content.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    return true;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const QFileInfo& file : QDir(QFile::decodeName(argv[i])).entryInfoList(QDir::Files)) {
            if (!replay(file.filePath()))
                return EXIT_FAILURE;
            ++replayed;
        }
    }
    std::printf("%d inputs\n", replayed);
    return replayed > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
