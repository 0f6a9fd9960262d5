#include "steps.h"

#include "calibrationstep.h"
#include "fingersteps.h"
#include "replylimits.h"
#include "sequencestep.h"
#include "theme.h"
#include "updatestep.h"

#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>

#include <array>
#include <functional>

namespace vanto
{

namespace
{
constexpr int FingerCount = 6;
constexpr int HandCount = 4;
constexpr QLatin1String Firmware("2.5.11");
constexpr QLatin1String UpdatedFirmware("2.5.12");
constexpr QLatin1String SerialCtrlVersion("3.1");
constexpr QLatin1String ModbusVersion("1.0");
constexpr QLatin1String Hardware("1B01"); ///< that the example of an update is for
constexpr QLatin1String BootLoader("1.3");
constexpr std::array ThumbRootPresets{600, 1900, 3300}; ///< of every simulated hand

/// An entry of the Devices list.
struct Hand {
    int node;
    bool modbus;
};

QLatin1String versionOf(bool modbus)
{
    return modbus ? ModbusVersion : SerialCtrlVersion;
}

QString entryText(const Hand& hand)
{
    return QStringLiteral("0x%1 (%2 V%3, Protocol V%4)")
        .arg(hand.node, 2, 16, QLatin1Char('0'))
        .arg(hand.modbus ? QLatin1String("ModBus-RTU") : QLatin1String("SerialCtrl"), Firmware,
             versionOf(hand.modbus));
}

/// Scans until as many hands are listed, then stops as soon as the present node is finished.
void scanFor(Stage& stage, int hands)
{
    const auto* button = stage.find<QPushButton>("pushButton_ScanDevices");
    const QString idleCaption = button->text();
    // Nodes that are absent need not be waited for so long.
    const QScopedValueRollback limits(ReplyLimits::current(), ReplyLimits().stretched(6));
    stage.scan(hands, [&] {
        stage.expectText(QStringLiteral("the Scan button while scanning"), button->text(),
                         QStringLiteral("Stop"));
        if (button->text() == idleCaption)
            stage.complain(QStringLiteral("the Scan button keeps its caption"));
        stage.takePicture(QStringLiteral("-running"));
    });
    stage.expect(QStringLiteral("the Scan button afterwards"), button->text(), idleCaption);
}

void expectDevices(Stage& stage, const QList<Hand>& hands)
{
    auto* devices = stage.devices();
    stage.expect(QStringLiteral("the number of hands"), QString::number(devices->count()),
                 QString::number(hands.size()));
    for (int i = 0; i < hands.size(); ++i)
        stage.expect(QStringLiteral("device %1").arg(i + 1), devices->itemText(i),
                     entryText(hands[i]));
}

void chooseTheme(Stage& stage, const QString& name)
{
    stage.withDialog([&] { stage.trigger("action_Theme"); },
                     [&](QDialog& dialog) {
                         static_cast<QInputDialog&>(dialog).setTextValue(name);
                         stage.takePicture(QStringLiteral("-dialog"), &dialog);
                         dialog.accept();
                     });
}

QString start(Stage& stage)
{
    stage.await(QStringLiteral("the port is listed"),
                [&] { return stage.ports()->findData(stage.portName()) >= 0; });
    stage.expect(QStringLiteral("the number of hands"), QString::number(stage.devices()->count()),
                 QStringLiteral("0"));
    return QStringLiteral("window shown");
}

/// Does the same in each theme and returns to the one that was in force.
void inEveryTheme(Stage& stage, const std::function<void(const QString& theme)>& act)
{
    const QString before = qApp->styleSheet();
    QStringList sheets;
    for (const QString& name : Theme::names()) {
        chooseTheme(stage, name);
        act(name);
        sheets.append(qApp->styleSheet());
    }
    if (sheets.contains(QString()) || QStringList(sheets).removeDuplicates() > 0)
        stage.complain(QStringLiteral("the themes do not differ"));
    chooseTheme(stage, Theme::names().value(sheets.indexOf(before)));
}

QString theme(Stage& stage)
{
    inEveryTheme(stage, [&](const QString& name) { stage.takePicture(QLatin1Char('-') + name); });
    return Theme::names().join(QLatin1String(" and "));
}

QString pages(Stage& stage)
{
    auto* pages = stage.find<QTabWidget>("tabWidget");
    int pictures = 0;
    inEveryTheme(stage, [&](const QString& name) {
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            const QString pageName =
                pages->currentWidget()->objectName().section(QLatin1Char('_'), 1);
            stage.takePicture(QStringLiteral("-%1-%2").arg(pageName.toLower(), name));
            ++pictures;
        }
    });
    pages->setCurrentIndex(0);
    return QStringLiteral("%1 pictures").arg(pictures);
}

QString port(Stage& stage)
{
    stage.choosePort(stage.portName());
    return stage.ports()->currentText();
}

QString scan(Stage& stage)
{
    scanFor(stage, HandCount);
    const bool modbus = stage.modbus();
    expectDevices(stage, {{2, modbus}, {3, !modbus}, {4, true}, {4, false}});
    return QStringLiteral("%1 entries").arg(HandCount);
}

QString open(Stage& stage)
{
    auto* devices = stage.devices();
    stage.expect(QStringLiteral("the current device"), devices->currentText(),
                 entryText({2, stage.modbus()}));
    stage.expectText(QStringLiteral("the status"), stage.statusText(),
                     QStringLiteral("Running info loaded"));
    stage.await(QStringLiteral("the scan's last time-out text vanishes"),
                [&] { return stage.errorText().isEmpty(); });
    return devices->currentText();
}

void expectVersions(Stage& stage)
{
    const std::array<std::pair<const char*, QString>, 4> versions{
        std::pair{"lineEdit_BasicFirmwareVersion", QLatin1Char('V') + Firmware},
        {"lineEdit_BasicProtocolVersion", QLatin1Char('V') + versionOf(stage.modbus())},
        {"lineEdit_BasicHardwareTypeVersion", Hardware},
        {"lineEdit_BasicBootLoaderVersion", QLatin1Char('V') + BootLoader}};
    for (const auto& [name, wanted] : versions)
        stage.expect(QLatin1String(name), stage.field(name), wanted);
}

void expectCalibration(Stage& stage, int node)
{
    const std::array<std::pair<const char*, const char*>, 2> limits{
        std::pair{"lineEdit_BasicCaliStart%1", "start"}, {"lineEdit_BasicCaliEnd%1", "end"}};
    for (const auto& [name, property] : limits) {
        for (int finger = 0; finger < FingerCount; ++finger) {
            const QString lineEdit = QString::fromLatin1(name).arg(finger);
            stage.expect(lineEdit, stage.field(lineEdit),
                         stage.askHands(QStringLiteral("get %1 %2 %3")
                                            .arg(node)
                                            .arg(QLatin1String(property))
                                            .arg(finger)));
        }
    }
    for (std::size_t preset = 0; preset < ThumbRootPresets.size(); ++preset) {
        const QString lineEdit = QStringLiteral("lineEdit_BasicThumbRootPos%1").arg(preset);
        stage.expect(lineEdit, stage.field(lineEdit), QString::number(ThumbRootPresets.at(preset)));
    }
}

void expectChoices(Stage& stage, int node)
{
    const std::array<std::pair<const char*, const char*>, 2> choices{
        std::pair{"comboBox_BasicSelfTestLevel", "selftest"},
        {"comboBox_BasicBeepSwitch", "beepswitch"}};
    for (const auto& [name, property] : choices)
        stage.expect(
            QLatin1String(name), QString::number(stage.find<QComboBox>(name)->currentIndex()),
            stage.askHands(QStringLiteral("get %1 %2").arg(node).arg(QLatin1String(property))));
}

QString basic(Stage& stage)
{
    for (const char* change :
         {"set 2 start 0 417", "set 2 end 5 3210", "set 2 selftest 0", "set 2 beepswitch 0"})
        stage.askHands(QLatin1String(change));
    stage.click("pushButton_BasicReloadBasic");
    expectVersions(stage);
    expectCalibration(stage, 2);
    expectChoices(stage, 2);
    return QStringLiteral("every field shows what the hand holds");
}

QString beep(Stage& stage)
{
    const int before = stage.askHands(QStringLiteral("get 2 beeps")).toInt();
    stage.click("pushButton_BasicBeep");
    stage.expectText(QStringLiteral("the status"), stage.statusText(),
                     QStringLiteral("Beep succeeded"));
    stage.expect(QStringLiteral("the hand's count of beeps"),
                 stage.askHands(QStringLiteral("get 2 beeps")), QString::number(before + 1));
    return QStringLiteral("the hand beeped once");
}

QString setId(Stage& stage)
{
    stage.withDialog([&] { stage.click("pushButton_BasicSetID"); },
                     [&](QDialog& dialog) {
                         auto& input = static_cast<QInputDialog&>(dialog);
                         input.setIntValue(5);
                         stage.takePicture(QStringLiteral("-dialog"), &dialog);
                         input.accept();
                     });
    stage.expectText(
        QStringLiteral("the status"), stage.statusText(),
        QStringLiteral("node id changed from '0x02' to '0x05', ") +
            (stage.modbus() ? QLatin1String("please wait for device rebooting then rescan devices")
                            : QLatin1String("need to rescan devices")));
    stage.askHands(QStringLiteral("get 5 id"));
    return QStringLiteral("2 -> 5");
}

QString rescan(Stage& stage)
{
    scanFor(stage, HandCount);
    const bool modbus = stage.modbus();
    expectDevices(stage, {{3, !modbus}, {4, true}, {4, false}, {5, modbus}});
    stage.devices()->setCurrentIndex(HandCount - 1);
    expectVersions(stage);
    expectCalibration(stage, 5);
    return QStringLiteral("the hand is found at 5 and opened");
}

QString updated(Stage& stage)
{
    scanFor(stage, HandCount);
    auto* devices = stage.devices();
    stage.expect(QStringLiteral("the other hand"), devices->itemText(0),
                 entryText({3, !stage.modbus()}));
    devices->setCurrentIndex(HandCount - 1);
    const QString version = stage.field("lineEdit_BasicFirmwareVersion");
    stage.expect(QStringLiteral("the firmware version"), version,
                 QLatin1Char('V') + UpdatedFirmware);
    return QStringLiteral("firmware %1 -> %2").arg(QLatin1Char('V') + Firmware, version);
}

QString wire(Stage& stage)
{
    const QString statistics = stage.askHands(QStringLiteral("stats"));
    for (const char* faultless : {"overlaps=0", "bad=0"}) {
        if (!statistics.contains(QLatin1String(faultless)))
            stage.complain(statistics);
    }
    return statistics;
}

constexpr std::array steps{
    Step{"start", start},
    Step{"theme", theme},
    Step{"port", port},
    Step{"scan", scan},
    Step{"open", open},
    Step{"pages", pages},
    Step{"basic", basic},
    Step{"beep", beep},
    Step{"setting", settingPage},
    Step{"run", runPage},
    Step{"sequence", sequencePage},
    Step{"id", setId},
    Step{"rescan", rescan},
    Step{"calibrate", calibration},
    Step{"update", firmwareUpdate},
    Step{"updated", updated},
    Step{"wire", wire},
};
} // namespace

std::span<const Step> tourSteps()
{
    return steps;
}

QStringList tourHandOptions(bool modbus)
{
    QStringList options{QStringLiteral("--firmware"),
                        Firmware,
                        QStringLiteral("--protocol-version"),
                        SerialCtrlVersion,
                        QStringLiteral("--modbus-version"),
                        ModbusVersion,
                        QStringLiteral("--hardware"),
                        Hardware,
                        QStringLiteral("--boot"),
                        BootLoader};
    const std::array nodes =
        modbus ? std::array{"2:modbus", "3:serialctrl"} : std::array{"2:serialctrl", "3:modbus"};
    for (const char* node : {nodes[0], nodes[1], "4:serialctrl", "4:modbus"})
        options += {QStringLiteral("--node"), QLatin1String(node)};
    return options;
}

} // namespace vanto
