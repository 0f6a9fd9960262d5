#include "fingersteps.h"

#include <QComboBox>
#include <QSlider>

namespace vanto
{

namespace
{
constexpr int AngleMode = 1;
constexpr int Target = 30000;          ///< of the index finger
constexpr int TargetAngle = 12000;     ///< of the middle finger, hundredths of a degree
constexpr int AngleTolerance = 1;      ///< what the hand's own rounding may change
constexpr int LeastMovingCurrent = 20; ///< mA; a finger at rest draws less
} // namespace

QString runPage(Stage& stage)
{
    stage.showPage(RunTab);
    auto* slider = stage.find<QSlider>("verticalSlider_RunPos1");
    stage.setField("lineEdit_RunSpeed1", QStringLiteral("120"));
    slider->setSliderDown(true);
    slider->setSliderPosition(Target);
    slider->setSliderDown(false);
    stage.await(QStringLiteral("the index finger draws current"),
                [&] { return stage.field("lineEdit_RunCurrent1").toInt() >= LeastMovingCurrent; });
    stage.expect(QStringLiteral("the index finger's target"),
                 stage.askHands(QStringLiteral("get 2 target 1")), QString::number(Target));
    stage.takePicture(QStringLiteral("-moving"));

    auto* mode = stage.find<QComboBox>("comboBox_RunPosOrAngle");
    mode->setCurrentIndex(AngleMode);
    auto* middle = stage.find<QSlider>("verticalSlider_RunPos2");
    stage.await(QStringLiteral("the sliders show angles"), [&] { return middle->isEnabled(); });
    stage.setField("lineEdit_RunPos2", QString::number(TargetAngle / 100.0, 'f', 2));
    stage.click("pushButton_RunSetPos2");
    stage.await(QStringLiteral("the middle finger's angle is read back"),
                [&] { return qAbs(middle->value() - TargetAngle) <= AngleTolerance; });
    stage.takePicture(QStringLiteral("-angles"));
    mode->setCurrentIndex(0);
    stage.await(QStringLiteral("the sliders show positions"),
                [&] { return slider->isEnabled() && slider->value() == Target; });
    stage.showPage(BasicTab);
    return QStringLiteral("index finger to %1, middle finger to %2 degrees")
        .arg(Target)
        .arg(TargetAngle / 100);
}

QString settingPage(Stage& stage)
{
    stage.showPage(SettingTab);
    stage.setField("lineEdit_SettingP0", QStringLiteral("2.5"));
    stage.click("pushButton_SettingWritePID0");
    stage.expect(QStringLiteral("the gain read back"), stage.field("lineEdit_SettingP0"),
                 QStringLiteral("2.50"));
    stage.expect(QStringLiteral("the hand's gain"), stage.askHands(QStringLiteral("get 2 pid-p 0")),
                 QStringLiteral("2.5"));
    stage.takePicture(QStringLiteral("-written"));
    stage.showPage(BasicTab);
    return QStringLiteral("gain P of the thumb is 2.50");
}

} // namespace vanto
