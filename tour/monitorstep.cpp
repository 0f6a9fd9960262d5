#include "monitorstep.h"

#include "pageindex.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>

namespace vanto
{

namespace
{
/// Plays a part of a sequence, of which the monitor shows what the player reads.
void watchPlay(TourRunner& tour)
{
    const auto* steps = tour.find<QTableWidget>("tableWidget_Seq");
    const auto* run = tour.find<QPushButton>("pushButton_SeqRun");
    tour.showPage(SequenceTab);
    tour.withDialog([&] { tour.click("pushButton_SeqLoad"); },
                    answerWithFile(tour, QStringLiteral(VANTO_EXAMPLES "/wave.json")));
    tour.click(run->objectName());
    tour.waitFor(QStringLiteral("half of the steps are played"),
                 [&] { return steps->currentRow() >= steps->rowCount() / 2; });
    tour.saveScreenshot(QStringLiteral("-playing"));
    tour.click(QStringLiteral("pushButton_SeqStop"));
    tour.waitFor(QStringLiteral("the run ends"), [&] { return run->isEnabled(); });
}
} // namespace

QString monitor(TourRunner& tour)
{
    const int page = tour.find<QTabWidget>("tabWidget")->currentIndex();
    const QSize size = tour.window()->size();
    tour.trigger("action_Monitor");
    tour.showPage(RunTab);
    const auto* table = tour.find<QTableWidget>("tableWidget_Monitor");
    const auto shows = [&](int column, const QString& property) {
        return table->item(1, column)->text() == tour.command("get 2 " + property + " 1");
    };
    for (const char* target : {"52000", "9000", "30000"}) {
        tour.command(QStringLiteral("set 2 target 1 ") + QLatin1String(target));
        tour.waitFor(QStringLiteral("the finger has arrived"), [&] {
            return tour.command(QStringLiteral("get 2 position 1")) == QLatin1String(target);
        });
    }
    tour.click("pushButton_MonitorMark");
    tour.waitFor(QStringLiteral("the monitor shows the position"),
                 [&] { return shows(1, QStringLiteral("position")); });
    tour.waitFor(QStringLiteral("the monitor shows the current"),
                 [&] { return shows(0, QStringLiteral("current")); });
    tour.saveScreenshot(QStringLiteral("-plot"));
    const QString reached = table->item(1, 1)->text();
    watchPlay(tour);
    tour.trigger("action_Monitor");
    tour.window()->resize(size);
    tour.showPage(page);
    return QStringLiteral("the finger is at %1").arg(reached);
}

} // namespace vanto
