#include "sequencestep.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>

namespace vanto
{

namespace
{
constexpr int StepsPlayed = 3; ///< from the end
constexpr int IndexColumn = 2;
constexpr QSize PictureSize(1024, 700);
const QString Example = QStringLiteral(VANTO_EXAMPLES "/wave.json");

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}
void saveMenu(TourRunner& tour)
{
    auto* menu = tour.find<QMenu>("menu_Edit");
    const auto* bar = tour.find<QMenuBar>("menuBar");
    menu->popup(bar->mapToGlobal(bar->actionGeometry(menu->menuAction()).bottomLeft()));
    tour.saveScreenshot(QStringLiteral("-menu"), menu);
    menu->hide();
}

/// Changes the sequence and takes the changes back; nothing of this is sent.
void editSteps(TourRunner& tour, QTableWidget* table)
{
    const int rows = table->rowCount();
    const QString before = tour.command(QStringLiteral("stats"));
    for (const char* action : {"action_Duplicate_Step", "action_Cut_Steps", "action_Paste_Steps"})
        tour.trigger(QLatin1String(action));
    tour.expect(QStringLiteral("the number of steps"), QString::number(table->rowCount()),
                QString::number(rows + 1));
    tour.saveScreenshot(QStringLiteral("-changed"));
    saveMenu(tour);
    for (int i = 0; i < 3; ++i)
        tour.trigger(QStringLiteral("action_Undo"));
    tour.expect(QStringLiteral("the number of steps after Undo"),
                QString::number(table->rowCount()), QString::number(rows));
    tour.expect(QStringLiteral("the frames"), tour.command(QStringLiteral("stats")), before);
}
} // namespace

QString sequencePage(TourRunner& tour)
{
    auto* table = tour.find<QTableWidget>("tableWidget_Seq");
    auto* run = tour.find<QPushButton>("pushButton_SeqRun");
    tour.window()->resize(PictureSize); // the monitor has widened it
    tour.showPage(SequenceTab);
    tour.withDialog([&] { tour.click("pushButton_SeqLoad"); }, answerWithFile(tour, Example));
    const int start = table->rowCount() - StepsPlayed;
    table->setCurrentCell(start, 0);
    tour.waitFor(QStringLiteral("the hand takes the step's pose"),
                 [&] { return run->isEnabled() && table->currentRow() == start; });
    tour.saveScreenshot(QStringLiteral("-edit"));
    tour.click(run->objectName());
    tour.waitFor(QStringLiteral("the last step is played"),
                 [&] { return table->currentRow() == table->rowCount() - 1; });
    tour.saveScreenshot(QStringLiteral("-playing"));
    tour.waitFor(QStringLiteral("the run ends"), [&] { return run->isEnabled(); });
    tour.expect(QStringLiteral("the index finger's target"),
                tour.command(QStringLiteral("get 2 target 1")),
                table->item(table->rowCount() - 1, IndexColumn)->text());

    editSteps(tour, table);
    const QString copy = QDir::current().absoluteFilePath(QStringLiteral("copy.json"));
    tour.withDialog([&] { tour.click("pushButton_SeqSave"); }, answerWithFile(tour, copy));
    if (contentOf(copy).isEmpty() || contentOf(copy) != contentOf(Example))
        tour.addFailure(QStringLiteral("the saved file differs from the loaded one"));
    tour.showPage(BasicTab);
    return QStringLiteral("%1 of %2 steps played").arg(StepsPlayed).arg(table->rowCount());
}

} // namespace vanto
