#include "monitorstep.h"

#include "pageindex.h"

#include <QTabWidget>
#include <QTableWidget>

namespace vanto
{

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
    tour.trigger("action_Monitor");
    tour.window()->resize(size);
    tour.showPage(page);
    return QStringLiteral("the finger is at %1").arg(table->item(1, 1)->text());
}

} // namespace vanto
