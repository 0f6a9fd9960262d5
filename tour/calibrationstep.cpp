#include "calibrationstep.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>

namespace vanto
{

namespace
{
constexpr int FirstPosition = 1500; ///< of the thumb root, absolute
constexpr int LastPosition = 2500;
constexpr int Rounding = 1; ///< of a position that is sent in other units

QString property(TourRunner& tour, const char* name)
{
    return tour.command(QStringLiteral("get 5 ") + QLatin1String(name));
}

DialogWatch::Answer acceptBox(TourRunner& tour, const char* beginning)
{
    return [&tour, beginning](QDialog& dialog) {
        const auto& message = static_cast<QMessageBox&>(dialog);
        if (tour.english() && !message.text().startsWith(QLatin1String(beginning)))
            tour.addFailure(QStringLiteral("a message box shows \"%1\"").arg(message.text()));
        message.button(QMessageBox::Ok)->click();
    };
}

void enterKey(QDialog& dialog)
{
    static_cast<QInputDialog&>(dialog).setTextValue(QStringLiteral("1a2b"));
    dialog.accept();
}

DialogWatch::Answer waitForReboot(TourRunner& tour)
{
    return [&tour](QDialog& dialog) {
        tour.waitFor(QStringLiteral("the hand is calibrating"),
                     [&] { return property(tour, "calibrating") == QLatin1String("1"); });
        acceptBox(tour, "Wait for Vanto reboots")(dialog);
    };
}

DialogWatch::Answer moveThumbRoot(TourRunner& tour, const char* beginning, int position,
                                  const char* suffix)
{
    return [=, &tour](QDialog& dialog) {
        const QString prompt = dialog.findChild<QLabel*>(QStringLiteral("label_Prompt"))->text();
        if (tour.english() && !prompt.startsWith(QLatin1String(beginning)))
            tour.addFailure(QStringLiteral("the prompt is \"%1\"").arg(prompt));
        dialog.findChild<QSpinBox*>()->setValue(position);
        tour.waitFor(QStringLiteral("the thumb root is at %1").arg(position),
                     [&] { return qAbs(property(tour, "raw 5").toInt() - position) <= Rounding; });
        tour.saveScreenshot(QLatin1String(suffix), &dialog);
        dialog.accept();
    };
}

/// `expected` is a raw position. Modbus hands have logical presets.
void expectPresetNear(TourRunner& tour, const char* lineEdit, int expected)
{
    constexpr double fullRange = 65535;
    const QString shown = tour.field(lineEdit);
    double actual = shown.toInt();
    if (tour.modbus()) {
        const int start = property(tour, "start 5").toInt();
        actual = start + actual / fullRange * (property(tour, "end 5").toInt() - start);
    }
    if (qAbs(actual - expected) > Rounding)
        tour.expect(QLatin1String(lineEdit), shown, QString::number(expected));
}
} // namespace

QString calibration(TourRunner& tour)
{
    const QString before = tour.field("lineEdit_BasicCaliStart0");
    tour.withDialogs(
        [&] { tour.click("pushButton_BasicRecalibrate"); },
        {acceptBox(tour, "Prepare calibration base"), enterKey,
         acceptBox(tour, "Vanto will reboot"), waitForReboot(tour),
         moveThumbRoot(tour, "Put Vanto onto calibration base", FirstPosition, "-first"),
         acceptBox(tour, "Take Vanto up"),
         moveThumbRoot(tour, "Move thumb root", LastPosition, "-last"),
         acceptBox(tour, "Calibration finished")});
    tour.expect(QStringLiteral("the hand's stage"), property(tour, "stage"), QStringLiteral("3"));

    tour.click("pushButton_BasicReloadBasic");
    const QString after = tour.field("lineEdit_BasicCaliStart0");
    tour.expect(QStringLiteral("the thumb's start"), after, property(tour, "start 0"));
    if (after == before)
        tour.addFailure(QStringLiteral("the thumb's start is still ") + before);
    expectPresetNear(tour, "lineEdit_BasicThumbRootPos0", FirstPosition);
    expectPresetNear(tour, "lineEdit_BasicThumbRootPos2", LastPosition);
    return QStringLiteral("thumb's start %1 -> %2").arg(before, after);
}

} // namespace vanto
