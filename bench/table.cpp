// How long a long sequence takes from its file to the table that shows it, and how smooth it is.

#include "bench.h"
#include "figures.h"
#include "pageindex.h"
#include "sequencemanager.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>

namespace
{
constexpr int Steps = 10'000;
constexpr double LimitMs = 1000;
constexpr double SmoothMs = 100; ///< for a jump to another place and its painting
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

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    silenceLog();
    const QApplication application(argc, argv);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    const QString name = writeSequence();
    Bench bench({});
    bench.showPage(SequencePage);
    auto& table = bench.find<QTableWidget>(QStringLiteral("tableWidget_Seq"));

    QElapsedTimer timer;
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        answer.stop();
        dialog->selectFile(name);
        timer.start();
        static_cast<QDialog*>(dialog)->accept();
    });
    answer.start(10);
    bench.find<QPushButton>(QStringLiteral("pushButton_SeqLoad")).click();
    bench.window().repaint();
    const double loaded = ms(timer);
    if (table.rowCount() != Steps) {
        std::fprintf(stderr, "the table shows %d steps\n", table.rowCount());
        return 1;
    }
    timer.start();
    table.scrollToBottom();
    bench.window().repaint();
    const double scrolled = ms(timer);

    bool good = report({"10,000 steps from file to table", loaded, "ms", LimitMs, 1});
    good &= report({"to the end of 10,000 steps", scrolled, "ms", SmoothMs, 1});
    return good ? 0 : 1;
}
