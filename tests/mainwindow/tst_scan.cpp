#include "deviceentry.h"
#include "handtest.h"
#include "testmain.h"

#include <QFileInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSerialPort>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>

namespace vanto
{

/// Port listing, scan and opening of devices in the real window.
class TestScan : public HandTest
{
    Q_OBJECT
private slots:
    void init()
    {
        for (const char* scans : {"findsAllHands", "stopAfterCurrentNode", "widgetsDuringScan",
                                  "badAnswers", "pageTimers"})
            if (QTest::currentTestFunction() == QString(scans))
                expectTimeouts(); // of absent nodes
    }
    void cleanup() { close(); }
    void listsPorts();
    void findsAllHands();
    void entryTexts();
    void stopAfterCurrentNode();
    void widgetsDuringScan();
    void portNotOpened_data();
    void portNotOpened();
    void badAnswers();
    void badEntries_data();
    void badEntries();
    void pageTimers();
};

void TestScan::listsPorts()
{
    const int system = static_cast<int>(TestWindow().ports()->count());
    TestWindow tool({"/tmp/first", "/tmp/second"});
    auto* ports = tool.ports();
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(ports->count(), system + 2);
        QCOMPARE(ports->itemText(system), "/tmp/first (added by VANTO_PORTS)");
        QCOMPARE(ports->itemData(system + 1).toString(), "/tmp/second");
        tool.click("pushButton_RefreshPorts");
    }
}

void TestScan::findsAllHands()
{
    open({"--node", "2", "--node", "2:modbus", "--node", "4", "--firmware", "1.4.300",
          "--protocol-version", "3.2"},
         0);
    m_tool->scanFor(3);
    QCOMPARE(m_tool->deviceTexts(), (QStringList{"0x02 (ModBus-RTU V1.4.300, Protocol V1.0)",
                                                 "0x02 (SerialCtrl V1.4.300, Protocol V3.2)",
                                                 "0x04 (SerialCtrl V1.4.300, Protocol V3.2)"}));
    QCOMPARE(m_tool->devices()->itemData(2).toInt(), 4);
    QVERIFY(shown().contains("Trying node '0x04'..."));
    QVERIFY(shown().contains("Timeout for SerialCtrl node '0x03'..."));
    QVERIFY(shown().contains("node '0x04' found, firmware version: 1.4.300"));
    m_tool->trigger("action_Messages"); // lists the hands, not what every absent node causes
    const QString listed = m_tool->window()->findChild<QPlainTextEdit*>()->toPlainText();
    QVERIFY(listed.contains("node '0x02' found, firmware version: 1.4.300 (x 2)"));
    QVERIFY(listed.contains("node '0x04' found, firmware version: 1.4.300\n"));
    QCOMPARE(listed.count('\n'), 4); // otherwise only what has been loaded
    QCOMPARE(m_tool->devices()->currentIndex(), 0);
    QCOMPARE(shown().last(3),
             (QStringList{"Basic info loaded", "Setting loaded", "Running info loaded"}));
}

/// Node numbers are hexadecimal in the list and in the messages of operations.
void TestScan::entryTexts()
{
    DeviceEntry entry{0x1F, "SerialCtrl", 1, 4, 300, 3, 2};
    QCOMPARE(entry.text(), "0x1f (SerialCtrl V1.4.300, Protocol V3.2)");
    open({"--node", "31"});
    command("fault refuse error=0x21");
    m_tool->click("pushButton_BasicBeep");
    QCOMPARE(m_tool->errorText(), "beep(0x1f, ...) returned 0xff (sub err 21)");
}

void TestScan::stopAfterCurrentNode()
{
    open({"--node", "2", "--node", "3"}, 0);
    auto* scan = m_tool->find<QPushButton>("pushButton_ScanDevices");
    const auto secondHalf = [scan] { // of a double click, which counts as a single click
        QTest::mouseDClick(scan, Qt::LeftButton);
        QTest::mouseRelease(scan, Qt::LeftButton);
    };
    connect(m_tool->find<QStatusBar>("statusBar"), &QStatusBar::messageChanged, scan,
            [=, this](const QString& text) {
                if (text == "Trying node '0x01'...")
                    duringExchange(secondHalf);
                else if (text == "Trying node '0x02'...")
                    duringExchange([scan] { scan->click(); });
            });
    scan->click();
    secondHalf(); // of a double click on Stop: no new scan
    QCOMPARE(m_tool->deviceTexts().size(), 1);
    QVERIFY(!shown().contains("Trying node '0x03'..."));
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.7");
}

void TestScan::widgetsDuringScan()
{
    open({"--node", "2"}, 0);
    auto* progress = m_tool->find<QProgressBar>("progressBar_Scan");
    QVERIFY(!progress->isVisible());
    bool checked = false;
    const auto check = [&] {
        checked = true;
        QCOMPARE(m_tool->find<QPushButton>("pushButton_ScanDevices")->text(), "Stop");
        QVERIFY(progress->isVisible() && progress->value() >= 2 && progress->maximum() == 255);
        for (const char* name :
             {"pushButton_RefreshPorts", "comboBox_Ports", "comboBox_Devices", "tabWidget"})
            QVERIFY2(!m_tool->enabled(name), name);
        QVERIFY(!m_tool->find<QAction>("action_Force_Update")->isEnabled());
        // The error text does not replace the status text.
        QVERIFY(m_tool->find<QLabel>("label_StatusError")->isVisible());
        QVERIFY(m_tool->errorText().startsWith("Timeout"));
        QVERIFY(m_tool->statusText().startsWith("Trying"));
        const auto* monitor = m_tool->window()->findChild<QWidget*>("dock_Monitor");
        QVERIFY(monitor && monitor->isVisible());
        m_tool->trigger("action_Monitor");
        QVERIFY(!monitor->isVisible());
        m_tool->trigger("action_About"); // does not wait for the end of the scan
    };
    connect(m_tool->find<QStatusBar>("statusBar"), &QStatusBar::messageChanged, this,
            [&](const QString& text) {
                if (text == "Trying node '0x01'...")
                    duringExchange([this] { m_tool->trigger("action_Monitor"); });
                else if (text == "Trying node '0x02'...")
                    duringExchange(check);
            });
    DialogAnswer<QMessageBox> about([&](QMessageBox* box) {
        box->accept();
        m_tool->click("pushButton_ScanDevices");
    });
    m_tool->click("pushButton_ScanDevices");
    QVERIFY(checked);
    QCOMPARE(about.count(), 1);
    QVERIFY(!progress->isVisible());
    QVERIFY(m_tool->find<QAction>("action_Force_Update")->isEnabled());
    QVERIFY(m_tool->enabled("comboBox_Ports") && m_tool->enabled("tabWidget"));
}

void TestScan::portNotOpened_data()
{
    // "hand": the port of a hand, which cannot be opened.
    addTextRows({"port", "cause"}, {{"/tmp/no/such%2/port%3", "The port is no longer available. "},
                                    {"", "No port is selected. "},
                                    {"hand", "Another program is using this port. "},
                                    {"hand", "You do not have permission to use this port. "}});
}

void TestScan::portNotOpened()
{
    QFETCH(QString, port);
    QFETCH(QString, cause);
    QSerialPort otherProgram;
    if (port == "hand") {
        m_hand = std::make_unique<HandProcess>();
        QVERIFY2(m_hand->start(), qPrintable(m_hand->errorText()));
        port = m_hand->portName();
        if (cause.startsWith("Another")) {
            otherProgram.setPortName(port);
            QVERIFY(otherProgram.open(QIODevice::ReadWrite));
        } else {
            QVERIFY(QFile::setPermissions(port, {}));
            if (QFileInfo(port).isReadable())
                QSKIP("root has every permission; tst_scan_unprivileged covers this");
        }
    }
    TestWindow tool(port.isEmpty() ? QStringList() : QStringList{port});
    tool.choosePort(port);
    QStringList texts;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        texts << box->text() << box->informativeText();
        QCOMPARE(box->windowTitle(), "VantoSetting");
        QCOMPARE(box->icon(), QMessageBox::Critical);
        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
        box->accept();
    });
    tool.click("pushButton_ScanDevices");
    QCOMPARE(answer.count(), 1);
    QCOMPARE(texts[0], QString("Open port '%1' failed, protocol=1, baudrate=115200").arg(port));
    QVERIFY2(texts[1].startsWith(cause), qPrintable(texts[1]));
    QCOMPARE(tool.shownTexts(), QStringList{"Trying node '0x01'..."});
    QVERIFY(tool.enabled("pushButton_RefreshPorts") && tool.enabled("tabWidget"));
    QCOMPARE(tool.find<QPushButton>("pushButton_ScanDevices")->text(), "Scan");
}

void TestScan::badAnswers()
{
    open({"--node", "1", "--node", "2", "--node", "3"}, 0);
    command("fault refuse error=0x21 node=1 command=0x01");
    command("fault garble node=2 command=0x00");
    m_tool->scanFor(1);
    QCOMPARE(m_tool->devices()->currentData().toInt(), 3);
    QVERIFY(shown().contains("getFirmwareVersion(0x01, ...) returned 0xff (sub err 21)"));
    QVERIFY(shown().contains("getProtocolVersion(0x02, ...) returned 0x01 (sub err 00)"));
}

void TestScan::badEntries_data()
{
    addTextRows({"entry", "box"},
                {{"CANopen V1.2.3, Protocol V3.1", "Unknown device protocol type"},
                 {"SerialCtrl V1.2.3", "Unknown device protocol version"},
                 {"SerialCtrl V1.2.3, Protocol V3", "Unknown device name"},
                 {"SerialCtrl V1.2.3, Protocol V2.9", "Unsupported protocol version"},
                 {"ModBus-RTU V1.2.3, Protocol V2.0", "Unsupported protocol version"}});
}

void TestScan::badEntries()
{
    QFETCH(QString, entry);
    open({"--node", "2"}, 1);
    m_hand->clearTrace();
    m_tool->devices()->addItem(QString("0x02 (%1)").arg(entry), 2);
    QString text;
    DialogAnswer<QMessageBox> answer([&](QMessageBox* box) {
        text = box->text();
        box->accept();
    });
    m_tool->devices()->setCurrentIndex(1);
    QTEST(text, "box");
    QCOMPARE(m_hand->requests().size(), 0);
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), QString());
    QVERIFY(!m_tool->enabled("pushButton_BasicBeep"));
    m_tool->devices()->setCurrentIndex(0);
    QCOMPARE(m_tool->field("lineEdit_BasicFirmwareVersion"), "V1.4.7");
}

void TestScan::pageTimers()
{
    open({"--node", "2"}, 0);
    auto* tabs = m_tool->find<QTabWidget>("tabWidget");
    const auto* run = m_tool->find<QTimer>("runTimer");
    const auto* force = m_tool->find<QTimer>("forceTimer");
    tabs->setCurrentIndex(2);
    QVERIFY(!run->isActive());
    m_tool->scanFor(1); // the timer of the current page starts
    QVERIFY(run->isActive() && run->interval() == 100);
    tabs->setCurrentIndex(3);
    QVERIFY(!run->isActive() && force->isActive() && force->interval() == 100);
    m_tool->window()->closeDevice();
    QVERIFY(!force->isActive());
    tabs->setCurrentIndex(2);
    QVERIFY(!run->isActive());
}

VANTO_TEST(TestScan)

} // namespace vanto

#include "tst_scan.moc"
