#include "updatestep.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QProgressDialog>

namespace vanto
{

namespace
{
const QString UpdateFile = QStringLiteral(VANTO_EXAMPLES "/sample.upd");
constexpr int UpdatedNode = 5;
constexpr std::array OtherNodes{3, 4};
constexpr int PicturePercent = 50;

void switchPower(TourRunner& tour, int node, bool on)
{
    tour.command(QStringLiteral("set %1 powered %2").arg(node).arg(on ? 1 : 0));
}

void chooseLocal(QDialog& dialog)
{
    static_cast<QInputDialog&>(dialog).setTextValue(QStringLiteral("local"));
    dialog.accept();
}

DialogWatch::Answer switchOff(TourRunner& tour)
{
    return [&tour](QDialog& dialog) {
        tour.saveScreenshot(QStringLiteral("-prompt"), &dialog);
        switchPower(tour, UpdatedNode, false);
        for (const int node : OtherNodes)
            switchPower(tour, node, false);
        dialog.accept();
    };
}

void expectProgress(TourRunner& tour, QDialog& dialog)
{
    if (!qobject_cast<QProgressDialog*>(&dialog))
        tour.addFailure(QStringLiteral("no progress dialog is shown"));
}

DialogWatch::Answer expectSuccess(TourRunner& tour)
{
    return [&tour](QDialog& dialog) {
        tour.expectText(QStringLiteral("the outcome"), static_cast<QMessageBox&>(dialog).text(),
                        QStringLiteral("Firmware updated successfully"));
        dialog.accept();
    };
}
} // namespace

QString firmwareUpdate(TourRunner& tour)
{
    QList<int> percentages;
    const auto watchProgress = [&](int percent) {
        auto* dialog = tour.window()->findChild<QProgressDialog*>();
        if (percentages.isEmpty()) {
            tour.saveScreenshot(QStringLiteral("-power-up"), dialog);
            switchPower(tour, UpdatedNode, true);
        }
        if (percent == PicturePercent)
            tour.saveScreenshot(QStringLiteral("-transfer"), dialog);
        percentages.append(percent);
    };
    const auto connection = QObject::connect(tour.window(), &MainWindow::sig_updateProgress,
                                             tour.window(), watchProgress);
    // Delays the transfer for a screenshot of the progress.
    tour.command(QStringLiteral("fault late stage=record skip=8 ms=300"));
    tour.withDialogs([&] { tour.click("pushButton_BasicUpdateFirmware"); },
                     {chooseLocal, answerWithFile(tour, UpdateFile), switchOff(tour),
                      [&tour](QDialog& dialog) { expectProgress(tour, dialog); },
                      expectSuccess(tour)});
    QObject::disconnect(connection);
    for (const int node : OtherNodes)
        switchPower(tour, node, true);
    if (!percentages.contains(PicturePercent) || percentages.constLast() != 100)
        tour.addFailure(QStringLiteral("the progress did not reach 100 %"));
    tour.expect(QStringLiteral("the number of hands"), QString::number(tour.devices()->count()),
                QStringLiteral("0"));
    return QStringLiteral("%1 steps up to 100 %").arg(percentages.size());
}

} // namespace vanto
