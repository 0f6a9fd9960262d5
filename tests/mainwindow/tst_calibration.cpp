#include "calibrationprocedure.h"
#include "handtest.h"
#include "testmain.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLabel>
#include <QSpinBox>
#include <QTimer>

namespace vanto
{

/// The guided calibration in the real window.
class TestCalibration : public HandTest
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { close(); }
    void completeCalibration_data() { addBoolRows("first", "serialctrl", "modbus"); }
    void completeCalibration();
    void earlyEnds_data();
    void earlyEnds();
    void quickSpinning_data() { addBoolRows("first", "accepted", "rejected"); }
    void quickSpinning();
    void cancelDuringMove_data() { addBoolRows("first", "serialctrl", "modbus"); }
    void cancelDuringMove();
    void failureAfterOk();
    void disturbedWait_data()
    {
        addBoolRows("first", "window closed", "port unplugged, About opened");
    }
    void disturbedWait();

private:
    /// Runs `act` in the dialogs with a spin box; cancels the dialog of number `cancelled`, from 1.
    void calibrate(std::function<void(QSpinBox*)> act, int cancelled = 0, QString key = "1a2b");
    QString sent() const { return frames({0x43, 0x4B, 0x63}).join('|'); }

    QStringList m_dialogs; ///< texts of the dialogs that were shown
};

const QString Timeout = "Timeout for SerialCtrl node '0x02'...";
const QString Refused = "%1(0x02, ...) returned 0xff (sub err 21)";

void TestCalibration::init()
{
    const QString row = QTest::currentDataTag();
    if (row.startsWith("fault drop") || row.startsWith("port unplugged") ||
        QTest::currentTestFunction() == QString("quickSpinning"))
        expectTimeouts();
    CalibrationProcedure::stageMs = 50;
    open({"--node", QTest::currentDataTag() == QString("modbus") ? "2:modbus" : "2"});
    command("set 2 raw 5 1000");
    command("set 2 reboot-time 0");
    clearRecords();
}

void TestCalibration::calibrate(std::function<void(QSpinBox*)> act, int cancelled, QString key)
{
    m_dialogs.clear();
    const auto enabled = [this] {
        QString states;
        for (const char* name : {"comboBox_Ports", "comboBox_Devices", "pushButton_RefreshPorts",
                                 "pushButton_ScanDevices", "tabWidget", "action_Force_Update"})
            states += m_tool->find<QObject>(name)->property("enabled").toString();
        return states;
    };
    const QString before = enabled();
    DialogAnswer<QDialog> watch([&](QDialog* dialog) {
        QVERIFY(!Conversation::isActive());
        QCOMPARE(dialog->windowTitle(), "VantoSetting");
        QVERIFY(!enabled().contains("true"));
        const auto* box = qobject_cast<QMessageBox*>(dialog);
        m_dialogs.append(box ? box->text() : dialog->findChild<QLabel*>()->text());
        auto* spinBox = dialog->findChild<QSpinBox*>("spinBox_ThumbRootPos");
        if (spinBox && m_dialogs.size() == cancelled)
            QTest::keyClicks(spinBox, "\r25"); // Return is not OK; 25 is incomplete
        if (m_dialogs.size() == cancelled)
            return dialog->reject();
        if (m_dialogs.constLast().contains("Supported protocol:"))
            m_hand->command("unplug");
        if (box)
            return box->button(QMessageBox::Ok)->click();
        if (auto* input = qobject_cast<QInputDialog*>(dialog)) {
            QCOMPARE(input->textEchoMode(), QLineEdit::Password);
            input->setTextValue(key);
        } else {
            act(spinBox);
        }
        dialog->accept();
    });
    m_tool->click("pushButton_BasicRecalibrate");
    QCOMPARE(enabled(), before);
}

void TestCalibration::completeCalibration()
{
    QFETCH(bool, first);
    m_tool->find<QPushButton>("pushButton_RefreshPorts")->setEnabled(false); // stays disabled
    int position = 1000;
    calibrate([&](QSpinBox* spinBox) {
        QCOMPARE(spinBox->value(), position);
        QTest::keyClick(spinBox, Qt::Key_Up);
        position += 32;
        QTRY_COMPARE(m_hand->command("get 2 raw 5"), QString("ok %1").arg(position));
    });
    QCOMPARE(first ? sent() : writes().join('|'),
             first ? "43 2b1a|4b 050804ff|63 01|63 02|4b 052804ff|63 03"
                   : "1012: 1a2b|1130: ffff|1140: 2f97|1011: 0001|1011: 0002|1130: ffff|"
                     "1140: 3246|1011: 0003");
    QCOMPARE(shown(), QStringList());
    QCOMPARE(m_dialogs.join('|'),
             "Prepare calibration base and take Vanto up then power on,\n"
             "presss OK when Vanto is ready.|Please input calibration key:|Vanto will reboot if "
             "not in calibrating state & calibration key is correct,\npress OK when ready|Wait "
             "for Vanto reboots and beeps 8 times,\npress OK when beep finished|Put Vanto onto "
             "calibration base & push it tightly, move thumb root to right pos, press OK when "
             "ready|Take Vanto up,\npress OK when ready|Move thumb root to right position,\n"
             "press OK when ready|Calibration finished, you may power off and power on the Vanto "
             "now to see the result");
    m_tool->click("pushButton_BasicReloadBasic");
    QCOMPARE(m_tool->field("lineEdit_BasicCaliStart0"), "424");
    // A raw position; over Modbus the logical one of the new range.
    QCOMPARE(m_tool->field("lineEdit_BasicThumbRootPos2"), first ? "1064" : "12553");
    calibrate([](auto*) {}, 4); // the hand is still calibrating
    QCOMPARE(m_dialogs.size(), 4);
    QCOMPARE(m_hand->command("get 2 calibrations"), "ok 1");
}

void TestCalibration::earlyEnds_data()
{
    QTest::addColumn<int>("dialogs");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("error");
    const QString begun = "43 2b1a";
    const QString pressed = begun + "|63 01";
    const QString again = pressed + "|63 02";
    const QStringList beforeCancel{"", "", "", begun, begun, pressed, again};
    for (int i = 0; i < beforeCancel.size(); ++i)
        QTest::addRow("cancel %d", i + 1) << i + 1 << beforeCancel[i] << "";
    QTest::newRow("fault drop command=0x43") << 3 << begun << Timeout;
    QTest::newRow("fault drop command=0x0A") << 4 << begun << Timeout;
    QTest::newRow("fault drop command=0x63") << 5 << pressed << Timeout;
    QTest::newRow("fault drop command=0x63 skip=1") << 6 << again << Timeout;
    QTest::newRow("fault drop command=0x0A skip=1") << 6 << again << Timeout;
    QTest::newRow("fault drop command=0x63 skip=2") << 7 << again + "|63 03" << Timeout;
    QTest::newRow("fault refuse command=0x0A") << 4 << begun << Refused.arg("getFingerPosAbs");
    QTest::newRow("fault refuse command=0x63")
        << 5 << pressed << Refused.arg("setButtonPressedCnt");
    QTest::newRow("fault refuse command=0x4B")
        << 8 << "43 2b1a|4b 050804ff|63 01|63 02|4b 050804ff|63 03"
        << Refused.arg("setFingerPosAbs");
    QTest::newRow("key 12345") << 3 << "43 4523" << Refused.arg("calibrate");
    QTest::newRow("key  0xFFFFFFFF ") << 3 << "43 ffff" << Refused.arg("calibrate");
    for (const char* invalid : {"key 1a2g", "key 0x", "key 12 34", "key 100000000", "key "})
        QTest::newRow(invalid) << 3 << QString() << QString();
}

void TestCalibration::earlyEnds()
{
    const QString what = QTest::currentDataTag();
    const QString value = what.section(' ', 1);
    const bool isKey = what.startsWith("key");
    m_hand->command(what); // accepted if it is a fault
    const auto move = [&](QSpinBox* spinBox) { spinBox->stepBy(what.contains("0x4B")); };
    calibrate(move, value.toInt(), isKey ? value : "1a2b");
    QTEST(int(m_dialogs.size()), "dialogs");
    QTEST(sent(), "written");
    QTEST(shown().join('|'), "error");
    QCOMPARE(m_dialogs.contains("Invalid calibration key"), isKey && sent().isEmpty());
}

void TestCalibration::quickSpinning()
{
    QFETCH(bool, first);
    constexpr int End = 1000 + 40 * 32;
    command("fault late command=0x4B count=0 ms=30");
    command("fault drop command=0x63"); // ends the calibration
    calibrate([&](QSpinBox* spinBox) {
        for (int step = 1; step <= 40; ++step)
            QTimer::singleShot(4 * step, spinBox, &QSpinBox::stepUp);
        connect(spinBox, &QSpinBox::valueChanged, spinBox->window(), [=](int value) {
            if (value == End) // the last value is still sent unless the dialog is rejected
                static_cast<QDialog*>(spinBox->window())->done(first);
        });
        QTRY_VERIFY(!spinBox->isVisible());
    });
    double earlier = 0;
    int position = 1000;
    for (const TracedFrame& move : m_hand->requests()) {
        if (move.bytes[4] != 0x4B)
            continue;
        QVERIFY(move.ms - earlier >= 29); // one at a time
        earlier = move.ms;
        const int next = std::uint8_t(move.bytes[7]) + 0x100 * std::uint8_t(move.bytes[8]);
        QVERIFY(next > position);
        position = next;
    }
    QCOMPARE(position == End, first);
    QCOMPARE(sent().endsWith("|63 01"), first);
}

void TestCalibration::cancelDuringMove()
{
    QFETCH(bool, first);
    calibrate([&](QSpinBox* spinBox) {
        command("fault late ms=30");
        duringExchange([=] { static_cast<QDialog*>(spinBox->window())->reject(); });
        spinBox->stepUp();
        QVERIFY(!spinBox->isVisible());
    });
    QCOMPARE(shown(), QStringList());
    QCOMPARE(first ? sent() : writes().join('|'),
             first ? "43 2b1a|4b 050804ff" : "1012: 1a2b|1130: ffff");
}

/// A typed number is sent at the click on OK; if that fails, the dialog is shown again.
void TestCalibration::failureAfterOk()
{
    bool shownAgain = false;
    calibrate([&](QSpinBox* spinBox) {
        auto* dialog = static_cast<QDialog*>(spinBox->window());
        command("fault refuse command=0x4B");
        spinBox->selectAll();
        QTest::keyClicks(spinBox, "2000");
        QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
        auto* timer = new QTimer(dialog);
        connect(timer, &QTimer::timeout, dialog, [&shownAgain, dialog, this] {
            if (shown().isEmpty() || !dialog->isVisible())
                return;
            shownAgain = true;
            dialog->reject();
        });
        timer->start(10);
    });
    QVERIFY(shownAgain);
    QCOMPARE(shown().join("|"), Refused.arg("setFingerPosAbs"));
    QCOMPARE(sent(), "43 2b1a|4b 05d007ff");
}

void TestCalibration::disturbedWait()
{
    QFETCH(bool, first);
    CalibrationProcedure::stageMs = first ? 60'000 : 3000;
    QElapsedTimer since;
    const auto disturb = [&] {
        QVERIFY(Conversation::isActive());
        since.start();
        first ? static_cast<void>(m_tool->window()->close()) : m_tool->trigger("action_About");
    };
    QTimer::singleShot(0, m_tool->window(), [&] {
        calibrate([&](QSpinBox*) { QTimer::singleShot(300, m_tool->window(), disturb); });
        QVERIFY(first ? since.elapsed() < 30'000 : since.elapsed() > 2500);
        QApplication::exit();
    });
    QApplication::exec();
    // One more if the loss of the port is not noticed at once.
    QVERIFY(m_dialogs.size() == (first ? 5 : 6) || (!first && m_dialogs.size() == 7));
    QCOMPARE(m_dialogs.value(5).contains("Supported protocol:"), !first);
    QCOMPARE(sent(), "43 2b1a|63 01");
    QTRY_COMPARE(shown().join('|'), first ? QString() : "The port has been lost. Check the cable.");
}

VANTO_TEST(TestCalibration)

} // namespace vanto

#include "tst_calibration.moc"
