#include "steps.h"

#include "calibrationstep.h"
#include "fingersteps.h"
#include "monitorstep.h"
#include "pageindex.h"
#include "parameterstep.h"
#include "replylimits.h"
#include "sequencestep.h"
#include "theme.h"
#include "updatestep.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>
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
constexpr QLatin1String Hardware("1B01"); ///< matches the example of an update file
constexpr QLatin1String BootLoader("1.3");
constexpr double FullRange = 65535;                     ///< of logical positions
constexpr std::array ThumbRootPresets{600, 1900, 3300}; ///< of every simulated hand, raw

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

/// Scans until this number of hands is listed, then stops after the current node.
void scanFor(TourRunner& tour, int hands)
{
    const auto* button = tour.find<QPushButton>("pushButton_ScanDevices");
    const QString idleCaption = button->text();
    // Short because of absent nodes, but long enough for a hand on a busy machine.
    const QScopedValueRollback limits(ReplyLimits::current(), ReplyLimits().scaled(10));
    tour.scan(hands, [&] {
        tour.expectText(QStringLiteral("the Scan button while scanning"), button->text(),
                        QStringLiteral("Stop"));
        if (button->text() == idleCaption)
            tour.addFailure(QStringLiteral("the Scan button does not change its text"));
        tour.saveScreenshot(QStringLiteral("-running"));
    });
    tour.expect(QStringLiteral("the Scan button afterwards"), button->text(), idleCaption);
}

void expectDevices(TourRunner& tour, const QList<Hand>& hands)
{
    auto* devices = tour.devices();
    tour.expect(QStringLiteral("the number of hands"), QString::number(devices->count()),
                QString::number(hands.size()));
    for (int i = 0; i < hands.size(); ++i)
        tour.expect(QStringLiteral("device %1").arg(i + 1), devices->itemText(i),
                    entryText(hands[i]));
}

void chooseTheme(TourRunner& tour, const QString& name)
{
    tour.withDialog([&] { tour.trigger("action_Theme"); },
                    [&](QDialog& dialog) {
                        static_cast<QInputDialog&>(dialog).setTextValue(name);
                        tour.saveScreenshot(QStringLiteral("-dialog"), &dialog);
                        dialog.accept();
                    });
}

QString start(TourRunner& tour)
{
    tour.waitFor(QStringLiteral("the port is listed"),
                 [&] { return tour.ports()->findData(tour.portName()) >= 0; });
    tour.expect(QStringLiteral("the number of hands"), QString::number(tour.devices()->count()),
                QStringLiteral("0"));
    return QStringLiteral("window shown");
}

/// Runs `act` in each theme, then restores the current theme.
void forEachTheme(TourRunner& tour, const std::function<void(const QString& theme)>& act)
{
    const QString before = qApp->styleSheet();
    QStringList sheets;
    for (const QString& name : Theme::names()) {
        chooseTheme(tour, name);
        act(name);
        sheets.append(qApp->styleSheet());
    }
    if (sheets.contains(QString()) || QStringList(sheets).removeDuplicates() > 0)
        tour.addFailure(QStringLiteral("the themes do not differ"));
    chooseTheme(tour, Theme::names().value(sheets.indexOf(before)));
}

QString theme(TourRunner& tour)
{
    forEachTheme(tour, [&](const QString& name) { tour.saveScreenshot(QLatin1Char('-') + name); });
    return Theme::names().join(QLatin1String(" and "));
}

QString pages(TourRunner& tour)
{
    auto* pages = tour.find<QTabWidget>("tabWidget");
    int pictures = 0;
    forEachTheme(tour, [&](const QString& name) {
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            const QString pageName =
                pages->currentWidget()->objectName().section(QLatin1Char('_'), 1);
            tour.saveScreenshot(QStringLiteral("-%1-%2").arg(pageName.toLower(), name));
            ++pictures;
        }
    });
    pages->setCurrentIndex(0);
    return QStringLiteral("%1 pictures").arg(pictures);
}

QString port(TourRunner& tour)
{
    tour.choosePort(tour.portName());
    return tour.ports()->currentText();
}

QString scan(TourRunner& tour)
{
    scanFor(tour, HandCount);
    const bool modbus = tour.modbus();
    expectDevices(tour, {{2, modbus}, {3, !modbus}, {4, true}, {4, false}});
    return QStringLiteral("%1 entries").arg(HandCount);
}

QString open(TourRunner& tour)
{
    auto* devices = tour.devices();
    tour.expect(QStringLiteral("the current device"), devices->currentText(),
                entryText({2, tour.modbus()}));
    tour.expectText(QStringLiteral("the status"), tour.statusText(),
                    QStringLiteral("Running info loaded"));
    tour.waitFor(QStringLiteral("the last time-out text of the scan is cleared"),
                 [&] { return tour.errorText().isEmpty(); });
    return devices->currentText();
}

void expectVersions(TourRunner& tour)
{
    const std::array<std::pair<const char*, QString>, 4> versions{
        std::pair{"lineEdit_BasicFirmwareVersion", QLatin1Char('V') + Firmware},
        {"lineEdit_BasicProtocolVersion", QLatin1Char('V') + versionOf(tour.modbus())},
        {"lineEdit_BasicHardwareTypeVersion", Hardware},
        {"lineEdit_BasicBootLoaderVersion", QLatin1Char('V') + BootLoader}};
    for (const auto& [name, expected] : versions)
        tour.expect(QLatin1String(name), tour.field(name), expected);
}

void expectCalibration(TourRunner& tour, int node)
{
    const std::array<std::pair<const char*, const char*>, 2> limits{
        std::pair{"lineEdit_BasicCaliStart%1", "start"}, {"lineEdit_BasicCaliEnd%1", "end"}};
    for (const auto& [name, property] : limits) {
        for (int finger = 0; finger < FingerCount; ++finger) {
            const QString lineEdit = QString::fromLatin1(name).arg(finger);
            tour.expect(lineEdit, tour.field(lineEdit),
                        tour.command(QStringLiteral("get %1 %2 %3")
                                         .arg(node)
                                         .arg(QLatin1String(property))
                                         .arg(finger)));
        }
    }
    // Over Modbus they are shares of the range.
    const auto thumbRoot = [&](QLatin1String end) {
        return tour.command(QStringLiteral("get %1 %2 5").arg(node).arg(end)).toDouble();
    };
    const double start = tour.modbus() ? thumbRoot(QLatin1String("start")) : 0;
    const double range = tour.modbus() ? thumbRoot(QLatin1String("end")) - start : FullRange;
    for (std::size_t preset = 0; preset < ThumbRootPresets.size(); ++preset) {
        const QString lineEdit = QStringLiteral("lineEdit_BasicThumbRootPos%1").arg(preset);
        const double share = std::clamp((ThumbRootPresets.at(preset) - start) / range, 0.0, 1.0);
        tour.expect(lineEdit, tour.field(lineEdit), QString::number(qRound(share * FullRange)));
    }
}

void expectChoices(TourRunner& tour, int node)
{
    const std::array<std::pair<const char*, const char*>, 2> choices{
        std::pair{"comboBox_BasicSelfTestLevel", "selftest"},
        {"comboBox_BasicBeepSwitch", "beepswitch"}};
    for (const auto& [name, property] : choices)
        tour.expect(
            QLatin1String(name), QString::number(tour.find<QComboBox>(name)->currentIndex()),
            tour.command(QStringLiteral("get %1 %2").arg(node).arg(QLatin1String(property))));
}

QString basic(TourRunner& tour)
{
    for (const char* change :
         {"set 2 start 0 417", "set 2 end 5 3210", "set 2 selftest 0", "set 2 beepswitch 0"})
        tour.command(QLatin1String(change));
    tour.click("pushButton_BasicReloadBasic");
    expectVersions(tour);
    expectCalibration(tour, 2);
    expectChoices(tour, 2);
    return QStringLiteral("all fields show the values of the hand");
}

QString beep(TourRunner& tour)
{
    const int before = tour.command(QStringLiteral("get 2 beeps")).toInt();
    tour.click("pushButton_BasicBeep");
    tour.expectText(QStringLiteral("the status"), tour.statusText(),
                    QStringLiteral("Beep succeeded"));
    tour.expect(QStringLiteral("the hand's count of beeps"),
                tour.command(QStringLiteral("get 2 beeps")), QString::number(before + 1));
    return QStringLiteral("the hand beeped once");
}

QString setId(TourRunner& tour)
{
    tour.withDialog([&] { tour.click("pushButton_BasicSetID"); },
                    [&](QDialog& dialog) {
                        auto& input = static_cast<QInputDialog&>(dialog);
                        input.setIntValue(5);
                        tour.saveScreenshot(QStringLiteral("-dialog"), &dialog);
                        input.accept();
                    });
    tour.expectText(QStringLiteral("the status"), tour.statusText(),
                    QStringLiteral("node id changed from '0x02' to '0x05', ") +
                        (tour.modbus()
                             ? QLatin1String("please wait for device rebooting then rescan devices")
                             : QLatin1String("need to rescan devices")));
    tour.command(QStringLiteral("get 5 id"));
    if (tour.modbus())
        tour.waitFor(QStringLiteral("the hand answers again"),
                     [&] { return tour.command(QStringLiteral("get 5 listening")) == u"1"; });
    return QStringLiteral("2 -> 5");
}

QString rescan(TourRunner& tour)
{
    scanFor(tour, HandCount);
    const bool modbus = tour.modbus();
    expectDevices(tour, {{3, !modbus}, {4, true}, {4, false}, {5, modbus}});
    tour.devices()->setCurrentIndex(HandCount - 1);
    expectVersions(tour);
    expectCalibration(tour, 5);
    return QStringLiteral("the hand is found at 5 and opened");
}

/// Unplugs the adapter and connects it again.
QString cable(TourRunner& tour)
{
    const auto* state = tour.find<QLabel>("label_ConnectionState");
    const QString connected = state->text();
    tour.expectText(QStringLiteral("the state"), connected, QStringLiteral("Connected"));
    tour.command(QStringLiteral("unplug"));
    tour.waitFor(QStringLiteral("the loss is shown"), [&] { return state->text() != connected; });
    tour.expectText(QStringLiteral("the state without the cable"), state->text(),
                    QStringLiteral("Port lost"));
    tour.saveScreenshot(QStringLiteral("-lost"));
    tour.command(QStringLiteral("replug"));
    tour.waitFor(QStringLiteral("the hand is open again"),
                 [&] { return state->text() == connected; });
    expectCalibration(tour, 5);
    return QStringLiteral("the hand is open again");
}

/// Halts a finger on its way, and continues.
QString halt(TourRunner& tour)
{
    constexpr int ContinueMs = 800; // an earlier click would count as one more halt
    auto* pages = tour.find<QTabWidget>("tabWidget");
    const auto* state = tour.find<QLabel>("label_ConnectionState");
    const QString connected = state->text();
    const auto* button = tour.find<QPushButton>("pushButton_Halt");
    const QString idle = button->text();
    pages->setCurrentIndex(RunTab);
    tour.setField("lineEdit_RunPos1", QStringLiteral("65535"));
    tour.click("pushButton_RunSetPos1");
    tour.click("pushButton_Halt");
    tour.waitFor(QStringLiteral("the halt is confirmed"), [&] { return button->text() != idle; });
    tour.expectText(QStringLiteral("the state"), state->text(), QStringLiteral("Halted"));
    tour.saveScreenshot(QStringLiteral("-halted"));
    const QString position = tour.command(QStringLiteral("get 5 position 1"));
    QTimer::singleShot(ContinueMs, tour.window(), [&tour] { tour.click("pushButton_Halt"); });
    tour.waitFor(QStringLiteral("the hand continues"), [&] { return state->text() == connected; });
    tour.expect(QStringLiteral("the finger's position afterwards"),
                tour.command(QStringLiteral("get 5 position 1")), position);
    pages->setCurrentIndex(BasicTab);
    return QStringLiteral("the finger stands at %1").arg(position);
}

QString openNode(TourRunner& tour)
{
    const auto* state = tour.find<QLabel>("label_ConnectionState");
    const QString connected = state->text();
    tour.withDialog(
        [&] { tour.trigger("action_Open_Node"); },
        [&](QDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(QStringLiteral("0x05"));
            tour.saveScreenshot(QStringLiteral("-dialog"), &dialog);
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
    tour.waitFor(QStringLiteral("the hand is open"), [&] { return state->text() == connected; });
    expectDevices(tour, {{3, !tour.modbus()}, {4, true}, {4, false}, {5, tour.modbus()}});
    tour.expect(QStringLiteral("the current device"), tour.devices()->currentText(),
                entryText({5, tour.modbus()}));
    expectCalibration(tour, 5);
    return tour.devices()->currentText();
}

QString updated(TourRunner& tour)
{
    tour.command(QStringLiteral("set 5 current-limit 1 333")); // as if by the new firmware
    scanFor(tour, HandCount);
    auto* devices = tour.devices();
    tour.expect(QStringLiteral("the other hand"), devices->itemText(0),
                entryText({3, !tour.modbus()}));
    devices->setCurrentIndex(HandCount - 1);
    const QString version = tour.field("lineEdit_BasicFirmwareVersion");
    tour.expect(QStringLiteral("the firmware version"), version,
                QLatin1Char('V') + UpdatedFirmware);
    const auto* notice = tour.find<QWidget>("noticeBar");
    tour.waitFor(QStringLiteral("the comparison with the backup is offered"),
                 [&] { return notice->isVisible(); });
    return QStringLiteral("firmware %1 -> %2").arg(QLatin1Char('V') + Firmware, version);
}

QString wire(TourRunner& tour)
{
    QString statistics = tour.command(QStringLiteral("stats"));
    for (const char* faultless : {"overlaps=0", "bad=0"}) {
        if (!statistics.contains(QLatin1String(faultless)))
            tour.addFailure(statistics);
    }
    return statistics;
}

constexpr std::array AllSteps{
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
    Step{"monitor", monitor},
    Step{"sequence", sequencePage},
    Step{"id", setId},
    Step{"rescan", rescan},
    Step{"cable", cable},
    Step{"node", openNode},
    Step{"halt", halt},
    Step{"parameters", parameterFiles},
    Step{"calibrate", calibration},
    Step{"update", firmwareUpdate},
    Step{"updated", updated},
    Step{"wire", wire},
};
} // namespace

std::span<const Step> tourSteps()
{
    return AllSteps;
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
