#include "parameterstep.h"

#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <array>

namespace vanto
{

namespace
{
constexpr QLatin1String FileName("hand.json");
/// Changes of the hand, and of the calibration, which is not restored.
constexpr std::array Changes{"pid-p 1", "pid-i 1", "current-limit 2", "force-limit 3"};
constexpr std::array ChangedValues{"42.5", "0.75", "321", "456"};
constexpr int ChangedStart = 433;

QString valueOf(TourRunner& tour, std::size_t change)
{
    return tour.command(QStringLiteral("get 5 ") + QLatin1String(Changes.at(change)));
}

QPushButton* button(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QLatin1String(name));
}

void restore(TourRunner& tour, QDialog& dialog)
{
    auto* close = button(dialog, "pushButton_ParametersClose");
    const QString idle = close->text();
    tour.saveScreenshot(QStringLiteral("-dialog"), &dialog);
    button(dialog, "pushButton_Restore")->click();
    tour.waitFor(QStringLiteral("the end of the restore"), [&] { return close->text() == idle; });
    tour.expectText(QStringLiteral("the outcome"),
                    dialog.findChild<QLabel*>(QStringLiteral("label_RestoreState"))->text(),
                    QStringLiteral("Written: %1.").arg(Changes.size()));
    tour.saveScreenshot(QStringLiteral("-restored"), &dialog);
    dialog.reject();
}

void showInformation(TourRunner& tour)
{
    tour.withDialogs([&] { tour.trigger("action_Hand_Information"); }, {});
    auto* dialog = tour.window()->findChild<QDialog*>(QStringLiteral("handInformation"));
    if (!dialog || dialog->findChild<QTableWidget*>()->rowCount() == 0) {
        tour.addFailure(QStringLiteral("no information about the hand is shown"));
        return;
    }
    tour.saveScreenshot(QStringLiteral("-information"), dialog);
    dialog->close();
}
} // namespace

QString parameterFiles(TourRunner& tour)
{
    const QString file = QDir::current().absoluteFilePath(FileName);
    tour.withDialog([&] { tour.trigger("action_Save_Parameters"); }, answerWithFile(tour, file));
    QStringList before;
    for (std::size_t i = 0; i < Changes.size(); ++i) {
        before.append(valueOf(tour, i));
        tour.command(QStringLiteral("set 5 %1 %2")
                         .arg(QLatin1String(Changes.at(i)), QLatin1String(ChangedValues.at(i))));
    }
    const QString start = tour.command(QStringLiteral("get 5 start 0"));
    tour.command(QStringLiteral("set 5 start 0 %1").arg(ChangedStart));
    tour.withDialogs([&] { tour.trigger("action_Restore_Parameters"); },
                     {[&](QDialog& dialog) { chooseFile(dialog, file); },
                      [&](QDialog& dialog) { restore(tour, dialog); }});
    for (std::size_t i = 0; i < Changes.size(); ++i)
        tour.expect(QLatin1String(Changes.at(i)), valueOf(tour, i), before.value(qsizetype(i)));
    tour.expect(QStringLiteral("the calibration, which was not ticked"),
                tour.command(QStringLiteral("get 5 start 0")), QString::number(ChangedStart));
    tour.command(QStringLiteral("set 5 start 0 ") + start);
    showInformation(tour);
    return QStringLiteral("%1 of %2 values restored").arg(Changes.size()).arg(Changes.size() + 1);
}

} // namespace vanto
