#include "fakeusb.h"
#include "handtest.h"
#include "testmain.h"

#include <QLabel>

namespace vanto
{

/// USB serial adapters that are unplugged and plugged in again, in the real window. fakeusb.sh runs
/// this test.
class TestAdapters : public HandTest
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        if (!FakeUsb::isAvailable())
            QSKIP("needs tests/support/fakeusb.sh");
    }
    void cleanup()
    {
        close();
        m_usb.reset();
    }
    void comesBackUnderOtherName();
    void otherAdapterTakesName_data();
    void otherAdapterTakesName();
    void newAdaptersAppear();

private:
    QString state() const { return m_tool->find<QLabel>("label_ConnectionState")->text(); }
    static QString text(const QString& name) { return name + " (Serial Adapter)"; }
    QString port() const { return m_tool->ports()->currentText(); }
    QStringList ports() const;
    /// Plugs in an adapter that leads to the hands.
    void plugIn(const QString& name, const QString& serialNumber = "A1") const
    {
        FakeAdapter adapter{name, serialNumber};
        adapter.port = m_hand->portName();
        m_usb->plugIn(adapter);
    }
    void openByScan(const QString& name);
    void unplug(const QString& name) const;
    /// Checks that the port of this name has been opened and nothing is written.
    void awaitReconnection(const QString& name) const;

    const QString Added = "/tmp/added (added by VANTO_PORTS)";
    std::unique_ptr<FakeUsb> m_usb;
};

QStringList TestAdapters::ports() const
{
    QStringList texts;
    for (int i = 0; i < m_tool->ports()->count(); ++i)
        texts.append(m_tool->ports()->itemText(i));
    return texts;
}

void TestAdapters::openByScan(const QString& name)
{
    m_hand = std::make_unique<HandProcess>();
    // One for each protocol, so that a scan of their node waits for no time-out.
    const QStringList hands{"--node", "1:modbus", "--node", "1:serialctrl"};
    QVERIFY2(m_hand->start(hands), qPrintable(m_hand->errorText()));
    m_usb = std::make_unique<FakeUsb>();
    plugIn(name);
    ReplyLimits::current() = PatientLimits;
    m_tool = std::make_unique<TestWindow>(QStringList{"/tmp/added"});
    m_tool->choosePort(name);
    QCOMPARE(ports(), (QStringList{text(name), Added}));
    duringExchange([this] { m_tool->click("pushButton_ScanDevices"); }); // Stop, after this node
    m_tool->click("pushButton_ScanDevices");
    QCOMPARE(m_tool->devices()->count(), 2);
    QCOMPARE(state(), "Connected");
}

void TestAdapters::unplug(const QString& name) const
{
    m_usb->unplug(name);
    command("unplug");
    QTRY_COMPARE_WITH_TIMEOUT(state(), "Port lost", 60'000);
    QTRY_VERIFY_WITH_TIMEOUT(idle(), 60'000);
    m_hand->clearTrace();
    m_tool->clearShownTexts();
    command("replug");
}

void TestAdapters::awaitReconnection(const QString& name) const
{
    QTRY_COMPARE_WITH_TIMEOUT(shown().count("Reconnected"), 1, 60'000);
    QCOMPARE(state(), "Connected");
    QCOMPARE(port(), text(name));
    QCOMPARE(m_tool->ports()->currentData().toString(), name);
    QVERIFY(!m_hand->requests().isEmpty());
    QCOMPARE(writes(), QStringList());
}

void TestAdapters::comesBackUnderOtherName()
{
    QString name = "ttyUSB0";
    openByScan(name);
    for (const char* next : {"ttyUSB1", "ttyUSB0"}) {
        unplug(name);
        name = next;
        plugIn(name);
        awaitReconnection(name);
        QCOMPARE(ports(), (QStringList{text(name), Added}));
    }
}

void TestAdapters::otherAdapterTakesName_data()
{
    addTextRows({"serialNumber"}, {{"B2"}, {""}});
}

void TestAdapters::otherAdapterTakesName()
{
    openByScan("ttyUSB0");
    unplug("ttyUSB0");
    QFETCH(QString, serialNumber);
    plugIn("ttyUSB0", serialNumber);
    QTest::qWait(2500); // the port is looked for every second
    ReplyLimits::current() = {100, 100, 100, 100};
    m_tool->click("pushButton_BasicReloadBasic");
    QTRY_VERIFY_WITH_TIMEOUT(idle(), 60'000);
    QCOMPARE(shown().constLast(), "Basic info loaded");
    QCOMPARE(state(), "Port lost");
    QVERIFY(m_hand->trace().isEmpty());
    ReplyLimits::current() = PatientLimits;
    plugIn("ttyUSB1");
    awaitReconnection("ttyUSB1");
}

void TestAdapters::newAdaptersAppear()
{
    openByScan("ttyUSB1");
    clearRecords();
    plugIn("ttyUSB2", "B2");
    plugIn("ttyUSB0", "");
    QTRY_COMPARE_WITH_TIMEOUT(
        ports(), (QStringList{text("ttyUSB0"), text("ttyUSB1"), text("ttyUSB2"), Added}), 60'000);
    QCOMPARE(port(), text("ttyUSB1"));
    QCOMPARE(m_tool->ports()->itemData(0).toString(), "ttyUSB0");
    QCOMPARE(m_tool->devices()->count(), 2);
    QCOMPARE(state(), "Connected");
    QVERIFY(m_hand->trace().isEmpty());
    unplug("ttyUSB1");
    plugIn("ttyUSB3");
    awaitReconnection("ttyUSB3");
    QTest::qWait(2500); // new adapters are looked for every two seconds
    QCOMPARE(ports().count(text("ttyUSB3")), 1);
}

VANTO_TEST(TestAdapters)

} // namespace vanto

#include "tst_adapters.moc"
