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

void switchPower(Stage& stage, int node, bool on)
{
    stage.askHands(QStringLiteral("set %1 powered %2").arg(node).arg(on ? 1 : 0));
}

void chooseLocal(QDialog& dialog)
{
    static_cast<QInputDialog&>(dialog).setTextValue(QStringLiteral("local"));
    dialog.accept();
}

DialogWatch::Answer switchOff(Stage& stage)
{
    return [&stage](QDialog& dialog) {
        stage.takePicture(QStringLiteral("-prompt"), &dialog);
        switchPower(stage, UpdatedNode, false);
        for (const int node : OtherNodes)
            switchPower(stage, node, false);
        dialog.accept();
    };
}

void expectProgress(Stage& stage, QDialog& dialog)
{
    if (!qobject_cast<QProgressDialog*>(&dialog))
        stage.complain(QStringLiteral("no progress is shown"));
}

DialogWatch::Answer expectSuccess(Stage& stage)
{
    return [&stage](QDialog& dialog) {
        stage.expectText(QStringLiteral("the outcome"), static_cast<QMessageBox&>(dialog).text(),
                         QStringLiteral("Firmware updated successfully"));
        dialog.accept();
    };
}
} // namespace

QString firmwareUpdate(Stage& stage)
{
    QList<int> percentages;
    const auto watchProgress = [&](int percent) {
        auto* dialog = stage.window()->findChild<QProgressDialog*>();
        if (percentages.isEmpty()) {
            stage.takePicture(QStringLiteral("-power-up"), dialog);
            switchPower(stage, UpdatedNode, true);
        }
        if (percent == PicturePercent)
            stage.takePicture(QStringLiteral("-transfer"), dialog);
        percentages.append(percent);
    };
    const auto connection = QObject::connect(stage.window(), &MainWindow::sig_updateProgress,
                                             stage.window(), watchProgress);
    // A moment in which the progress can be looked at.
    stage.askHands(QStringLiteral("fault late stage=record skip=8 ms=300"));
    stage.withDialogs([&] { stage.click("pushButton_BasicUpdateFirmware"); },
                      {chooseLocal, withFile(stage, UpdateFile), switchOff(stage),
                       [&stage](QDialog& dialog) { expectProgress(stage, dialog); },
                       expectSuccess(stage)});
    QObject::disconnect(connection);
    for (const int node : OtherNodes)
        switchPower(stage, node, true);
    if (!percentages.contains(PicturePercent) || percentages.constLast() != 100)
        stage.complain(QStringLiteral("the progress stopped before its end"));
    stage.expect(QStringLiteral("the number of hands"), QString::number(stage.devices()->count()),
                 QStringLiteral("0"));
    return QStringLiteral("%1 steps up to 100 %").arg(percentages.size());
}

} // namespace vanto
