#include "handprocess.h"
#include "windowdriver.h"

#include <QInputDialog>
#include <QLabel>
#include <QTimer>

/// The Basic tab in the real window, with a simulated hand at node 2 on a real serial device.
class TestBasic : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void showsWhatTheHandHolds();
    void failedReads_data();
    void failedReads();
    void invalidValues();
    void commands_data();
    void commands();
    void commandFaults_data();
    void commandFaults();
    void nothingSelected();
    void setId_data();
    void setId();
    void initFollowsSelfTestLevel();
    void reloadWithoutAdapter();
    void handVanishesDuringReload();

private:
    QByteArray payloadOf(std::uint8_t command) const;

    std::unique_ptr<HandProcess> m_hand;
    std::unique_ptr<WindowDriver> m_tool;
};

namespace
{
constexpr int CommandAt = 4;
constexpr int PayloadAt = 6;

QString good(QStringView answer)
{
    return answer.startsWith(u"ok") ? QString() : answer.toString();
}
} // namespace

void TestBasic::init()
{
    m_hand = std::make_unique<HandProcess>();
    QVERIFY2(m_hand->start({"--node", "2", "--firmware", "1.4.7", "--hardware", "1b0c", "--boot",
                            "3.12", "--protocol-version", "3.1"}),
             qPrintable(m_hand->errorText()));
    m_tool = std::make_unique<WindowDriver>(QStringList{m_hand->portName()});
    m_tool->scanFor(1);
    m_hand->forgetTrace();
    m_tool->forgetShownTexts();
}

void TestBasic::cleanup()
{
    for (const TracedFrame& frame : m_hand->trace())
        QVERIFY2(!frame.marks.contains("overlap"), frame.bytes.toHex().constData());
    m_tool.reset();
    m_hand.reset();
}

/// The payload of the only request with this command.
QByteArray TestBasic::payloadOf(std::uint8_t command) const
{
    QList<QByteArray> payloads;
    for (const TracedFrame& request : m_hand->requests())
        if (static_cast<std::uint8_t>(request.bytes[CommandAt]) == command)
            payloads.append(request.bytes.mid(PayloadAt, request.bytes.size() - PayloadAt - 1));
    return payloads.size() == 1 ? payloads.constFirst()
                                : QByteArray::number(payloads.size()) + " requests";
}

void TestBasic::showsWhatTheHandHolds()
{
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.7");
    QCOMPARE(m_tool->field("lineEdit_BasicProtocolVersion"), "V3.1");
    QCOMPARE(m_tool->field("lineEdit_BasicHardwareTypeVersion"), "1B0C");
    QCOMPARE(m_tool->field("lineEdit_BasicBootLoaderVersion"), "V3.12");
    m_hand->command("set 2 selftest 1");
    m_hand->command("set 2 beepswitch 0");
    m_tool->click("pushButton_BasicReloadBasic");
    QCOMPARE(m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->currentText(), "Stretch only");
    QCOMPARE(m_tool->find<QComboBox>("comboBox_BasicBeepSwitch")->currentText(), "Basic Only");
    QCOMPARE(m_tool->statusText(), "Basic info loaded");

    // The reply carries six end positions, then six start positions, then the thumb root's.
    QByteArray reply;
    for (const TracedFrame& frame : m_hand->trace())
        if (frame.direction == "tx" && frame.bytes[CommandAt] == 3)
            reply = frame.bytes.mid(PayloadAt);
    const auto number = [&](int place) {
        const auto* bytes = reinterpret_cast<const unsigned char*>(reply.constData()) + 2 * place;
        return QString::number(bytes[0] + 256 * bytes[1]);
    };
    for (int f = 0; f < 6; ++f) {
        QCOMPARE(m_tool->field(qPrintable(QString("lineEdit_BasicCaliEnd%1").arg(f))), number(f));
        QCOMPARE(m_tool->field(qPrintable(QString("lineEdit_BasicCaliStart%1").arg(f))),
                 number(6 + f));
    }
    for (int i = 0; i < 3; ++i)
        QCOMPARE(m_tool->field(qPrintable(QString("lineEdit_BasicThumbRootPos%1").arg(i))),
                 number(12 + i));
}

void TestBasic::failedReads_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("emptyField");
    QTest::addColumn<bool>("controlsEnabled");
    QTest::addColumn<bool>("updateEnabled");
    QTest::newRow("firmware") << "refuse command=0x01 error=0x21"
                              << "getFirmwareVersion(0x02, ...) returned 0xff (sub err 21)"
                              << "lineEdit_BasicFirmwareVersion" << true << true;
    QTest::newRow("protocol") << "drop command=0x00"
                              << "Timeout for SerialCtrl node '0x02'..."
                              << "lineEdit_BasicProtocolVersion" << false << true;
    QTest::newRow("hardware") << "garble command=0x02"
                              << "getHardwareVersion(0x02, ...) returned 0x01 (sub err 00)"
                              << "lineEdit_BasicBootLoaderVersion" << true << false;
    QTest::newRow("calibration") << "short command=0x03"
                                 << "getCaliData(0x02, ...) returned 0x08 (sub err 00)"
                                 << "lineEdit_BasicCaliStart0" << true << true;
    QTest::newRow("self test") << "over-long command=0x20"
                               << "getSelfTestLevel(0x02, ...) returned 0x04 (sub err 00)"
                               << "" << true << true;
    QTest::newRow("beep switch") << "wrong-node command=0x21"
                                 << "getBeepSwitch(0x02, ...) returned 0x05 (sub err 00)"
                                 << "" << true << true;
}

void TestBasic::failedReads()
{
    QFETCH(QString, fault);
    QFETCH(QString, error);
    QFETCH(QString, emptyField);
    QCOMPARE(good(m_hand->command("fault " + fault)), QString());
    m_tool->click("pushButton_BasicReloadBasic");

    QCOMPARE(m_tool->shownTexts(), (QStringList{error, "Basic info loaded"}));
    QCOMPARE(m_hand->requests().size(), 6); // the other reads still run
    if (!emptyField.isEmpty())
        QCOMPARE(m_tool->field(qPrintable(emptyField)), QString());
    QTEST(m_tool->enabled("pushButton_BasicBeep"), "controlsEnabled");
    QTEST(m_tool->enabled("pushButton_BasicUpdateFirmware"), "updateEnabled");
    QVERIFY(m_tool->enabled("pushButton_BasicReloadBasic"));
    m_tool->click("pushButton_BasicReloadBasic");
    QVERIFY(m_tool->enabled("pushButton_BasicBeep"));
}

void TestBasic::invalidValues()
{
    m_hand->command("set 2 selftest 3");
    m_hand->command("set 2 beepswitch 2");
    m_tool->click("pushButton_BasicReloadBasic");
    QCOMPARE(m_tool->shownTexts(),
             (QStringList{"getSelfTestLevel(0x02, ...) got invalid value '03'",
                          "getBeepSwitch(0x02, ...) got invalid value '02'", "Basic info loaded"}));
    QCOMPARE(m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->currentIndex(), -1);
    QVERIFY(!m_tool->field("lineEdit_BasicThumbRootPos2").isEmpty());
}

void TestBasic::commands_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("success");
    QTest::newRow("beep") << "pushButton_BasicBeep" << 0x62 << QByteArray("f401") << "beep"
                          << "Beep succeeded";
    QTest::newRow("self-test level")
        << "pushButton_BasicSetSelfTestLevel" << 0x60 << QByteArray("00") << "setSelfTestLevel"
        << "Set self-test level succeeded";
    QTest::newRow("beep switch") << "pushButton_BasicSetBeepSwitch" << 0x61 << QByteArray("01")
                                 << "setBeepSwitch"
                                 << "Set beep switch succeeded";
    QTest::newRow("init") << "pushButton_BasicStartInit" << 0x64 << QByteArray() << "startInit"
                          << "Start init succeeded";
    QTest::newRow("reset") << "pushButton_BasicReset" << 0x40 << QByteArray("00") << "reset"
                           << "Reset succeeded";
}

void TestBasic::commands()
{
    QFETCH(QString, button);
    QFETCH(int, command);
    QFETCH(QString, name);
    m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->setCurrentIndex(0);
    m_tool->find<QComboBox>("comboBox_BasicBeepSwitch")->setCurrentIndex(1);

    m_tool->click(qPrintable(button));
    QTEST(payloadOf(static_cast<std::uint8_t>(command)).toHex(), "payload");
    QTEST(m_tool->statusText(), "success");

    m_tool->forgetShownTexts();
    m_hand->command("fault drop");
    m_tool->click(qPrintable(button));
    m_hand->command("fault refuse error=0x0b");
    m_tool->click(qPrintable(button));
    QCOMPARE(m_tool->shownTexts(), (QStringList{"Timeout for SerialCtrl node '0x02'...",
                                                name + "(0x02, ...) returned 0xff (sub err 0b)"}));
    QCOMPARE(m_tool->errorText(), m_tool->shownTexts().constLast());
}

void TestBasic::commandFaults_data()
{
    QTest::addColumn<QString>("shown");
    const QString failed = "beep(0x02, ...) returned 0x%1 (sub err %2)";
    QTest::newRow("garble") << failed.arg("01", "00");
    QTest::newRow("wrong-node") << failed.arg("05", "00");
    QTest::newRow("wrong-command") << failed.arg("06", "00");
    QTest::newRow("refuse-bare") << failed.arg("ff", "00");
    QTest::newRow("truncate") << "Timeout for SerialCtrl node '0x02'...";
    QTest::newRow("wrong-host") << "Timeout for SerialCtrl node '0x02'...";
    QTest::newRow("garbage") << "Timeout for SerialCtrl node '0x02'...";
    QTest::newRow("late") << "Timeout for SerialCtrl node '0x02'...";
    QTest::newRow("over-long") << "Beep succeeded";
    QTest::newRow("noise") << "Beep succeeded";
}

void TestBasic::commandFaults()
{
    QFETCH(QString, shown);
    QCOMPARE(good(m_hand->command(QString("fault ") + QTest::currentDataTag())), QString());
    m_tool->click("pushButton_BasicBeep");
    QCOMPARE(m_tool->shownTexts(), QStringList{shown});
    QTest::qWait(100); // the late reply comes before the next request, and is dropped
    m_tool->click("pushButton_BasicReset");
    QCOMPARE(m_tool->statusText(), "Reset succeeded");
}

void TestBasic::nothingSelected()
{
    m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel")->setCurrentIndex(-1);
    m_tool->find<QComboBox>("comboBox_BasicBeepSwitch")->setCurrentIndex(-1);
    QStringList boxes;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        QCOMPARE(box->windowTitle(), "VantoSetting");
        QCOMPARE(box->icon(), QMessageBox::Information);
        boxes.append(box->text());
        box->accept();
    });
    m_tool->click("pushButton_BasicSetSelfTestLevel");
    m_tool->click("pushButton_BasicSetBeepSwitch");
    QCOMPARE(boxes,
             (QStringList{"Invalid self-test level '-1'", "Invalid beep switch level '%d'"}));
    QCOMPARE(m_hand->requests().size(), 0);
}

void TestBasic::setId_data()
{
    QTest::addColumn<int>("typed");
    QTest::addColumn<bool>("accept");
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("shown");
    QTest::newRow("changed") << 16 << true << QByteArray("10")
                             << "node id changed from '0x02' to '0x10', need to rescan devices";
    QTest::newRow("256") << 256 << true << QByteArray("00")
                         << "node id changed from '0x02' to '0x00', need to rescan devices";
    QTest::newRow("same") << 2 << true << QByteArray("0 requests").toHex() << "";
    QTest::newRow("cancelled") << 9 << false << QByteArray("0 requests").toHex() << "";
}

void TestBasic::setId()
{
    QFETCH(int, typed);
    QFETCH(bool, accept);
    QFETCH(QString, shown);
    DialogAnswer<QInputDialog> answer([&](QInputDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), "VantoSetting");
        QCOMPARE(dialog->labelText(), "Please input new node id:");
        QCOMPARE(dialog->intValue(), 2);
        QCOMPARE(dialog->intMinimum(), 2);
        QCOMPARE(dialog->intMaximum(), 256);
        dialog->setIntValue(typed);
        accept ? dialog->accept() : dialog->reject();
    });
    m_tool->click("pushButton_BasicSetID");
    QCOMPARE(answer.count(), 1);
    QTEST(payloadOf(0x42).toHex(), "payload");
    const bool changed = !shown.isEmpty();
    QCOMPARE(m_tool->shownTexts(), changed ? QStringList{shown} : QStringList());
    QCOMPARE(m_tool->devices()->count(), changed ? 0 : 1);
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion").isEmpty(), changed);

    // Without an entry there is nobody to talk to.
    m_hand->forgetTrace();
    m_tool->find<QPushButton>("pushButton_BasicBeep")->setEnabled(true);
    m_tool->click("pushButton_BasicBeep");
    QCOMPARE(m_hand->requests().size(), changed ? 0 : 1);
}

void TestBasic::initFollowsSelfTestLevel()
{
    auto* level = m_tool->find<QComboBox>("comboBox_BasicSelfTestLevel");
    for (const int index : {0, 1, 2, 0, -1}) {
        level->setCurrentIndex(index);
        QCOMPARE(m_tool->enabled("pushButton_BasicStartInit"), index == 0);
    }
}

void TestBasic::reloadWithoutAdapter()
{
    m_tool->window()->closeDevice();
    QString text;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        text = box->text();
        QCOMPARE(box->icon(), QMessageBox::Critical);
        box->accept();
    });
    m_tool->click("pushButton_BasicReloadBasic");
    QCOMPARE(text, "Unknown protocol");
    QVERIFY(m_tool->enabled("pushButton_BasicReloadBasic"));
    QVERIFY(!m_tool->enabled("pushButton_BasicBeep"));
    m_tool->window()->closeDeviceIfOpen();
}

void TestBasic::handVanishesDuringReload()
{
    // The reads after the first are long out on the wire when the answer to it is shown.
    connect(m_tool->find<QLineEdit>("lineEdit_BasicFirmwareVersion"), &QLineEdit::textChanged,
            m_tool.get(), [this](const QString& text) {
                if (!text.isEmpty())
                    m_hand->command("unplug");
            });
    m_tool->click("pushButton_BasicReloadBasic");
    const auto shown = m_tool->shownTexts();
    QCOMPARE(shown.count("Timeout for SerialCtrl node '0x02'..."), 5);
    QCOMPARE(shown.constLast(), "Basic info loaded");

    QVERIFY(m_hand->command("replug").startsWith("ok"));
    m_hand->command("clear");
    m_tool->click("pushButton_RefreshPorts");
    m_tool->choosePort(m_hand->portName());
    m_tool->scanFor(1);
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.7");
}

QTEST_MAIN(TestBasic)
#include "tst_basic.moc"
