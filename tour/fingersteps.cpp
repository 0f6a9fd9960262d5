#include "fingersteps.h"

#include "pageindex.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QTabWidget>

namespace
{
constexpr int AngleMode = 1;
constexpr int Target = 30000;          ///< of the index finger
constexpr int TargetAngle = 12000;     ///< of the middle finger, hundredths of a degree
constexpr int AngleTolerance = 1;      ///< what the hand's own rounding may change
constexpr int LeastMovingCurrent = 20; ///< mA; a finger at rest draws less

void showPage(Stage& stage, int page)
{
    stage.find<QTabWidget>(QStringLiteral("tabWidget")).setCurrentIndex(page);
}

void setField(Stage& stage, const char* name, const QString& text)
{
    stage.find<QLineEdit>(QLatin1String(name)).setText(text);
}
} // namespace

QString runPage(Stage& stage)
{
    showPage(stage, RunPage);
    auto& slider = stage.find<QSlider>(QStringLiteral("verticalSlider_RunPos1"));
    setField(stage, "lineEdit_RunSpeed1", QStringLiteral("120"));
    slider.setSliderDown(true);
    slider.setSliderPosition(Target);
    slider.setSliderDown(false);
    stage.await(QStringLiteral("the index finger draws current"), [&] {
        return stage.field(QStringLiteral("lineEdit_RunCurrent1")).toInt() >= LeastMovingCurrent;
    });
    stage.expect(QStringLiteral("the index finger's target"),
                 stage.askHands(QStringLiteral("get 2 target 1")), QString::number(Target));
    stage.takePicture(QStringLiteral("-moving"));

    auto& mode = stage.find<QComboBox>(QStringLiteral("comboBox_RunPosOrAngle"));
    mode.setCurrentIndex(AngleMode);
    auto& middle = stage.find<QSlider>(QStringLiteral("verticalSlider_RunPos2"));
    stage.await(QStringLiteral("the sliders show angles"), [&] { return middle.isEnabled(); });
    setField(stage, "lineEdit_RunPos2", QString::number(TargetAngle / 100.0, 'f', 2));
    stage.click(QStringLiteral("pushButton_RunSetPos2"));
    stage.await(QStringLiteral("the middle finger's angle is read back"),
                [&] { return qAbs(middle.value() - TargetAngle) <= AngleTolerance; });
    stage.takePicture(QStringLiteral("-angles"));
    mode.setCurrentIndex(0);
    stage.await(QStringLiteral("the sliders show positions"),
                [&] { return slider.isEnabled() && slider.value() == Target; });
    showPage(stage, BasicPage);
    return QStringLiteral("index finger to %1, middle finger to %2 degrees")
        .arg(Target)
        .arg(TargetAngle / 100);
}

QString settingPage(Stage& stage)
{
    showPage(stage, SettingPage);
    setField(stage, "lineEdit_SettingP0", QStringLiteral("2.5"));
    stage.click(QStringLiteral("pushButton_SettingWritePID0"));
    stage.expect(QStringLiteral("the gain read back"),
                 stage.field(QStringLiteral("lineEdit_SettingP0")), QStringLiteral("2.50"));
    stage.expect(QStringLiteral("the hand's gain"), stage.askHands(QStringLiteral("get 2 pid-p 0")),
                 QStringLiteral("2.5"));
    stage.takePicture(QStringLiteral("-written"));
    showPage(stage, BasicPage);
    return QStringLiteral("gain P of the thumb is 2.50");
}
