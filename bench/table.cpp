// The time from a long sequence file to its table, to scroll the table and to edit the sequence.

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
#include <functional>
#include <utility>
#include <vector>

namespace vanto
{

namespace
{
constexpr int Steps = 10'000;
constexpr double LimitMs = 1000;
constexpr double SmoothMs = 100; ///< to scroll to another row and paint it
constexpr double MsPerNs = 1e-6;
constexpr int Pasted = 1000;
constexpr int Repeats = 5;

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

/// The median time of an action of the Edit menu and of the painting after it. `prepare` runs
/// before each.
double timeOf(const WindowDriver& tool, const char* action, const std::function<void()>& prepare)
{
    std::vector<double> times;
    for (int i = 0; i < Repeats; ++i) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        tool.trigger(QLatin1String(action));
        tool.window()->repaint();
        times.push_back(ms(timer));
    }
    return median(times);
}

/// Edits that concern rows far apart, or many rows at the end, after one at the top has been added.
bool reportDistantEdits(const WindowDriver& tool, QTableWidget* table, double limit)
{
    const auto select = [&](int first, int last) {
        table->setRangeSelected({first, 0, last, table->columnCount() - 1}, true);
    };
    const auto selectEnds = [&] {
        table->clearSelection();
        select(1, 1);
        select(table->rowCount() - 1, table->rowCount() - 1);
    };
    const auto selectHalf = [&] {
        table->clearSelection();
        for (int row = 1; row < table->rowCount(); row += 2)
            select(row, row);
    };
    const auto selectLast = [&] {
        table->clearSelection();
        select(table->rowCount() - 1 - Pasted, table->rowCount() - 2);
    };
    table->clearSelection();
    select(0, 0);
    tool.trigger(QStringLiteral("action_Duplicate_Step"));
    bool good = true;
    const auto check = [&](const char* what, const char* action,
                           const std::function<void()>& prepare) {
        good &= report({what, timeOf(tool, action, prepare), "ms", limit, 1});
    };
    check("delete of steps 2 and the last", "action_Delete_Step", selectEnds);
    check("undo of it", "action_Undo", [] {});
    check("move of the last 1,000 steps", "action_Move_Step_Down", selectLast);
    const auto undo = [&] { tool.trigger(QStringLiteral("action_Undo")); };
    selectHalf();
    tool.trigger(QStringLiteral("action_Delete_Step"));
    check("redo of a delete of every second step", "action_Redo", undo);
    check("undo of it", "action_Undo", [&, first = true]() mutable {
        if (!std::exchange(first, false))
            tool.trigger(QStringLiteral("action_Redo"));
    });
    return good;
}

/// Edits the loaded sequence. The limit of each edit is the time that filling the table takes: an
/// action that undoes Load or redoes it.
bool reportEdits(const WindowDriver& tool, QTableWidget* table)
{
    const auto nothing = [] {};
    const auto undo = [&] { tool.trigger(QStringLiteral("action_Undo")); };
    const auto select = [&](int rows) {
        table->clearSelection();
        table->setRangeSelected({0, 0, rows - 1, table->columnCount() - 1}, true);
    };
    const double filled = timeOf(tool, "action_Redo", undo);
    std::printf("     filling of the table %.1f ms\n", filled);
    select(Pasted);
    tool.trigger(QStringLiteral("action_Copy_Steps"));
    bool good = true;
    const auto check = [&](const char* what, double time) {
        good &= report({what, time, "ms", filled, 1});
    };
    check("paste of 1,000 steps", timeOf(tool, "action_Paste_Steps", nothing));
    check("redo of it", timeOf(tool, "action_Redo", undo));
    check("undo of it", timeOf(tool, "action_Undo", nothing));
    check("delete of 1,000 steps", timeOf(tool, "action_Delete_Step", [&] { select(Pasted); }));
    check("undo of it", timeOf(tool, "action_Undo", nothing));
    const auto one = [&] { select(1); };
    check("duplicate of a step", timeOf(tool, "action_Duplicate_Step", one));
    check("move of a step", timeOf(tool, "action_Move_Step_Down", one));
    check("delete of a step", timeOf(tool, "action_Delete_Step", one));
    check("undo of it", timeOf(tool, "action_Undo", nothing));
    return reportDistantEdits(tool, table, filled) && good && table->rowCount() > Steps;
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
    good &= reportEdits(bench.tool, table);
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
