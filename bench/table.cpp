// The time from a long sequence file to its table, and the time to scroll the table.

#include "bench.h"
#include "dialogwatch.h"
#include "figures.h"
#include "sequencemanager.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTableWidget>
#include <QTemporaryDir>

#include <cstdio>

namespace vanto
{

namespace
{
constexpr int Steps = 10'000;
constexpr double LimitMs = 1000;
constexpr double SmoothMs = 100; ///< to scroll to another row and paint it
constexpr double MsPerNs = 1e-6;

QString writeSequence()
{
    SequenceManager manager;
    for (int i = 0; i < Steps; ++i)
        manager.insertSequenceDataItem(i, {{i, i, i, i, i, i}, {1, 2, 3, 4, 5, 6}, i});
    QFile file(QDir::current().absoluteFilePath(QStringLiteral("long.json")));
    manager.saveSequenceData(file);
    return file.fileName();
}

double ms(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) * MsPerNs;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    silenceLog();
    const QApplication application(argc, argv);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const QString name = writeSequence();
    const Bench bench;
    bench.tool.showPage(SequenceTab);
    auto* table = bench.tool.find<QTableWidget>("tableWidget_Seq");

    QElapsedTimer timer;
    const DialogWatch watch([&](QDialog& dialog) {
        QObject::connect(&dialog, &QDialog::accepted, [&] { timer.start(); });
        chooseFile(dialog, name);
    });
    bench.tool.click("pushButton_SeqLoad");
    bench.tool.window()->repaint();
    const double loaded = ms(timer);
    if (table->rowCount() != Steps) {
        std::fprintf(stderr, "the table shows %d steps\n", table->rowCount());
        return 1;
    }
    timer.start();
    table->scrollToBottom();
    bench.tool.window()->repaint();
    const double scrolled = ms(timer);

    bool good = report({"10,000 steps from file to table", loaded, "ms", LimitMs, 1});
    good &= report({"to the end of 10,000 steps", scrolled, "ms", SmoothMs, 1});
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
