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
constexpr int FirstPlace = 1500; ///< of the thumb root, absolute
constexpr int LastPlace = 2500;
constexpr int Rounding = 1; ///< of a place that goes over the wire in other units

QString property(Stage& stage, const char* name)
{
    return stage.askHands(QStringLiteral("get 5 ") + QLatin1String(name));
}

DialogWatch::Answer box(Stage& stage, const char* beginning)
{
    return [&stage, beginning](QDialog& dialog) {
        const auto& message = static_cast<QMessageBox&>(dialog);
        if (stage.english() && !message.text().startsWith(QLatin1String(beginning)))
            stage.complain(QStringLiteral("a box says \"%1\"").arg(message.text()));
        message.button(QMessageBox::Ok)->click();
    };
}

void typeKey(QDialog& dialog)
{
    static_cast<QInputDialog&>(dialog).setTextValue(QStringLiteral("1a2b"));
    dialog.accept();
}

DialogWatch::Answer rebooted(Stage& stage)
{
    return [&stage](QDialog& dialog) {
        stage.await(QStringLiteral("the hand is calibrating"),
                    [&] { return property(stage, "calibrating") == QLatin1String("1"); });
        box(stage, "Wait for Vanto reboots")(dialog);
    };
}

DialogWatch::Answer place(Stage& stage, const char* beginning, int position, const char* picture)
{
    return [=, &stage](QDialog& dialog) {
        const QString prompt = dialog.findChild<QLabel*>(QStringLiteral("label_Prompt"))->text();
        if (stage.english() && !prompt.startsWith(QLatin1String(beginning)))
            stage.complain(QStringLiteral("the prompt is \"%1\"").arg(prompt));
        dialog.findChild<QSpinBox*>()->setValue(position);
        stage.await(QStringLiteral("the thumb root is at %1").arg(position),
                    [&] { return qAbs(property(stage, "raw 5").toInt() - position) <= Rounding; });
        stage.takePicture(QLatin1String(picture), &dialog);
        dialog.accept();
    };
}

void expectNear(Stage& stage, const char* lineEdit, int wanted)
{
    const QString seen = stage.field(lineEdit);
    if (qAbs(seen.toInt() - wanted) > Rounding)
        stage.expect(QLatin1String(lineEdit), seen, QString::number(wanted));
}
} // namespace

QString calibration(Stage& stage)
{
    const QString before = stage.field("lineEdit_BasicCaliStart0");
    stage.withDialogs(
        [&] { stage.click("pushButton_BasicRecalibrate"); },
        {box(stage, "Prepare calibration base"), typeKey, box(stage, "Vanto will reboot"),
         rebooted(stage), place(stage, "Put Vanto onto calibration base", FirstPlace, "-first"),
         box(stage, "Take Vanto up"), place(stage, "Move thumb root", LastPlace, "-last"),
         box(stage, "Calibration finished")});
    stage.expect(QStringLiteral("the hand's stage"), property(stage, "stage"), QStringLiteral("3"));

    stage.click("pushButton_BasicReloadBasic");
    const QString after = stage.field("lineEdit_BasicCaliStart0");
    stage.expect(QStringLiteral("the thumb's start"), after, property(stage, "start 0"));
    if (after == before)
        stage.complain(QStringLiteral("the thumb's start is still ") + before);
    expectNear(stage, "lineEdit_BasicThumbRootPos0", FirstPlace);
    expectNear(stage, "lineEdit_BasicThumbRootPos2", LastPlace);
    return QStringLiteral("thumb's start %1 -> %2").arg(before, after);
}

} // namespace vanto
