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
constexpr int AngleTolerance = 1;      ///< rounding of the hand
constexpr int LeastMovingCurrent = 20; ///< mA; a finger at rest draws less
} // namespace

QString runPage(TourRunner& tour)
{
    tour.showPage(RunTab);
    auto* slider = tour.find<QSlider>("verticalSlider_RunPos1");
    tour.setField("lineEdit_RunSpeed1", QStringLiteral("120"));
    slider->setSliderDown(true);
    slider->setSliderPosition(Target);
    slider->setSliderDown(false);
    tour.waitFor(QStringLiteral("the index finger draws current"),
                 [&] { return tour.field("lineEdit_RunCurrent1").toInt() >= LeastMovingCurrent; });
    tour.expect(QStringLiteral("the index finger's target"),
                tour.command(QStringLiteral("get 2 target 1")), QString::number(Target));
    tour.saveScreenshot(QStringLiteral("-moving"));

    auto* mode = tour.find<QComboBox>("comboBox_RunPosOrAngle");
    mode->setCurrentIndex(AngleMode);
    auto* middle = tour.find<QSlider>("verticalSlider_RunPos2");
    tour.waitFor(QStringLiteral("the sliders show angles"), [&] { return middle->isEnabled(); });
    tour.setField("lineEdit_RunPos2", QString::number(TargetAngle / 100.0, 'f', 2));
    tour.click("pushButton_RunSetPos2");
    tour.waitFor(QStringLiteral("the middle finger's angle is read back"),
                 [&] { return qAbs(middle->value() - TargetAngle) <= AngleTolerance; });
    tour.saveScreenshot(QStringLiteral("-angles"));
    mode->setCurrentIndex(0);
    tour.waitFor(QStringLiteral("the sliders show positions"),
                 [&] { return slider->isEnabled() && slider->value() == Target; });
    tour.showPage(BasicTab);
    return QStringLiteral("index finger to %1, middle finger to %2 degrees")
        .arg(Target)
        .arg(TargetAngle / 100);
}

QString settingPage(TourRunner& tour)
{
    tour.showPage(SettingTab);
    tour.setField("lineEdit_SettingP0", QStringLiteral("2.5"));
    tour.click("pushButton_SettingWritePID0");
    tour.expect(QStringLiteral("the gain read back"), tour.field("lineEdit_SettingP0"),
                QStringLiteral("2.50"));
    tour.expect(QStringLiteral("the hand's gain"), tour.command(QStringLiteral("get 2 pid-p 0")),
                QStringLiteral("2.5"));
    tour.saveScreenshot(QStringLiteral("-written"));
    tour.showPage(BasicTab);
    return QStringLiteral("gain P of the thumb is 2.50");
}

} // namespace vanto
